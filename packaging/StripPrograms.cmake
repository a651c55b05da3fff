# Run by cpack before a package is made of what was installed: takes out of the programs what only tools read.
file(GLOB programs ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/usr/libexec/ostrel-form-wizard/ostrel-form-wizard*)
foreach(program IN LISTS programs)
  execute_process(COMMAND strip --remove-section=.comment --remove-section=.note ${program} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
