# fish completion for ostrel-form-wizard and ostrel-form-wizard-desktop

# The value of an option that stands before the cursor, with a leading ~ resolved.
function __ostrel_form_wizard_given --argument-names option
    set -l words (commandline -opc)
    for i in (seq (count $words))
        if string match -q -- "$option=*" $words[$i]
            string replace -- "$option=" '' $words[$i]
        else if test $words[$i] = $option; and set -q words[(math $i + 1)]
            string replace -r '^~(?=/)' $HOME -- $words[(math $i + 1)]
        end
    end | tail -n 1
end

# A listing of the dictionary that was named, such as its classes: a line a row, with tabs between the columns.
function __ostrel_form_wizard_rows
    set -l dictionary (__ostrel_form_wizard_given --dictionary)
    set -l system (__ostrel_form_wizard_given --system)
    test -f "$dictionary"; or return
    test $argv[1] = systems -o -z "$system"; or set -a argv --system $system
    ostrel-form-wizard $argv --dictionary $dictionary 2>/dev/null
end

function __ostrel_form_wizard_names
    __ostrel_form_wizard_rows $argv | string replace -r '\t.*' ''
end

# The paths that the last of a list of properties can become: those of the class, or of one object in it.
function __ostrel_form_wizard_fields
    set -l class (__ostrel_form_wizard_given --class)
    test -n "$class"; or return
    set -l list (commandline -ct | string replace -r '^--fields=' '')
    set -l chosen (string match -r '^.*,' -- $list)
    set -l word (string replace -r '^.*,' '' -- $list)
    for row in (__ostrel_form_wizard_rows properties --class $class)
        set -l of (string split \t -- $row) # path, kind
        test "$of[2]" = object; and set of[1] $of[1].
        test "$of[1]" = "$word"; and continue
        string match -q '*.?*' -- $of[1]; and not string match -q '*.*' -- $word; and continue
        echo "$chosen$of[1]"
    end
end

# The forms of the project that was named, and those of them that are kept.
function __ostrel_form_wizard_forms
    set -l project (__ostrel_form_wizard_given --project)
    test -f "$project"; and sed -n 's/\r$//; s/^Form=\(.*[\\]\)\{0,1\}\(.*\)\.[Ff][Rr][Mm]$/\2/p' $project
end
function __ostrel_form_wizard_kept
    for file in (string replace -r '\.[^.]*$' '' -- (__ostrel_form_wizard_given --project)).forms/*.json
        path basename $file | string replace -r '\.json$' ''
    end
end

# Folders, and the files with that ending.
function __ostrel_form_wizard_files --argument-names ending
    __fish_complete_path (commandline -ct | string replace -r '^--[a-z-]+=' '') |
        string match -r '^[^\t]*(?:/|\.'$ending')(?=\t|$)'
end

# English and the languages whose satellites stand beside the program; the links are those of their regions.
function __ostrel_form_wizard_languages
    echo ENU
    for library in (path dirname (path resolve (command -s ostrel-form-wizard)))/OstrelFormWizard???.dll
        test -L $library; and continue
        string match -rq 'OstrelFormWizard(?<language>...)\.dll$' $library; and echo $language
    end
end

# Whether the desktop program or one of the commands is being typed, or a command is still missing.
function __ostrel_form_wizard_in
    set -l words (commandline -opc)
    set -l command $words[2]
    test (path basename $words[1]) != ostrel-form-wizard-desktop; or set command desktop
    contains -- "$command" $argv
end

# OPTION COMMANDS ABOUT [what completes its value]
function __ostrel_form_wizard_option --argument-names option commands about
    for program in ostrel-form-wizard ostrel-form-wizard-desktop
        complete -c $program -n "__ostrel_form_wizard_in $commands" -l (string sub -s 3 -- $option) -d $about $argv[4..]
    end
end

set -l listings systems classes properties queries
set -l in_project generate wizard desktop
set -l of_kept keep status update
set -l sources generate $of_kept wizard $listings
set -l program ostrel-form-wizard

complete -c $program -f -n '__ostrel_form_wizard_in ""' -l version -d 'show the version and exit'
complete -c $program-desktop -s v -l version -d 'show the version and exit'
for each in $program $program-desktop
    complete -c $each -s h -l help -d 'show a summary and exit'
end
for command in 'generate	create forms in a project' \
    'keep	take up a form, so that it can be updated when its class changes' \
    'status	say which kept forms were edited and which their classes have left behind' \
    'update	bring kept forms up to their classes, with what was edited' \
    'undo	take back what the last run replaced in a project' \
    'wizard	open the wizard\'s dialogs over a project' \
    'systems	list the systems of a dictionary' \
    'classes	list the classes that a form can be made for' \
    'properties	list the properties of a class that forms can show' \
    'queries	list the queries of a class' \
    'dictionary	make a dictionary from JSON or JSON from a dictionary, compare two' \
    'compare	say what differs between two files as Visual Basic sees them' \
    'merge	merge what two sides made of one file' \
    'lint	say what Visual Basic would refuse, lose or mangle in files or a project' \
    'render	draw a form into a picture' \
    'doctor	look at the installation and say what mends it'
    complete -c $program -f -n '__ostrel_form_wizard_in ""' -a (string split \t $command)[1] \
        -d (string split \t $command)[2]
end

__ostrel_form_wizard_option --project "generate $of_kept undo wizard lint dictionary" 'the VB6 project file' -xa '(__ostrel_form_wizard_files vbp)'
__ostrel_form_wizard_option --dictionary "$sources desktop" 'the class dictionary' -rF
__ostrel_form_wizard_option --system 'generate classes properties queries' 'the system' -xa \
    '(__ostrel_form_wizard_names systems)'
__ostrel_form_wizard_option --class generate 'the persistent class of the form' -xa \
    '(__ostrel_form_wizard_names classes)'
__ostrel_form_wizard_option --class 'properties queries' 'the class' -xa '(__ostrel_form_wizard_names classes --all)'
__ostrel_form_wizard_option --fields generate 'its properties in order' -xa '(__ostrel_form_wizard_fields)'
__ostrel_form_wizard_option --set generate 'a setting for this run' -xa "Bold= Button= CollectionRows= Columns= FormSizable=
    ImageRows= LabelAlignLeft= Menu= MultilineRows= New= Save= Search= SearchClear= SearchNew= SearchPredicates=
    SearchSort= Statusbar= Toolbar="
__ostrel_form_wizard_option --code-page "$in_project $of_kept compare merge lint render" 'the Windows code page of the project\'s files' -xa \
    '874 932 936 949 950 1250 1251 1252 1253 1254 1255 1256 1257 1258 65001'
__ostrel_form_wizard_option --toolbox "$in_project" 'a project that uses the query control, or a file of libraries' -xa \
    "(__ostrel_form_wizard_files '(?:ini|vbp)')"
__ostrel_form_wizard_option --allow-incomplete generate 'make forms also without the query control or their name'
__ostrel_form_wizard_option --profile "$in_project" 'the settings file' -xa '(__ostrel_form_wizard_files ini)'
__ostrel_form_wizard_option --language "$in_project" 'language of the texts' -xa \
    '(__ostrel_form_wizard_languages)'
__ostrel_form_wizard_option --dry-run 'generate keep update undo' 'write nothing, say what would be written' -s n
__ostrel_form_wizard_option --quiet 'generate keep update undo dictionary' 'say nothing but errors' -s q
__ostrel_form_wizard_option --verbose 'generate dictionary' 'say more' -s v
__ostrel_form_wizard_option --diff 'generate keep update undo' 'show the changes of every file as a unified diff'
__ostrel_form_wizard_option --check generate 'write nothing, exit with status 1 when the project differs'
__ostrel_form_wizard_option --keep generate 'keep descriptions and forms, to update them later'
__ostrel_form_wizard_option --resolve update 'what becomes of one of the conflicts' -x
__ostrel_form_wizard_option --skip-conflicts update 'leave forms with conflicts as they are'
__ostrel_form_wizard_option --descriptions-from generate 'a list of form descriptions, one path a line' -rF
__ostrel_form_wizard_option --journal generate 'write every change to the project as a line of JSON' -rF
__ostrel_form_wizard_option --force generate 'let the journal replace a file that is no journal'
__ostrel_form_wizard_option --force dictionary 'replace the file also when it is something else'
__ostrel_form_wizard_option --json "generate status update undo dictionary compare lint doctor $listings" 'show the result as JSON'
__ostrel_form_wizard_option --all classes 'system and not persistent classes too'
__ostrel_form_wizard_option --all properties 'those that no form can show too'
__ostrel_form_wizard_option --all lint 'also ask the rules that are left out otherwise'
__ostrel_form_wizard_option --description properties 'show a form description that chooses all of them'
__ostrel_form_wizard_option --output merge 'the result' -rF
__ostrel_form_wizard_option --style merge 'what stands between the marks' -xa 'merge diff3 zdiff3'
__ostrel_form_wizard_option --conflicts 'merge update' 'what becomes of a conflict' -xa 'marks mine theirs'
__ostrel_form_wizard_option --marker-size merge 'how many signs a mark has' -x
__ostrel_form_wizard_option --path merge 'what the file is called in the project' -rF
__ostrel_form_wizard_option --fix doctor 'mend what you may change'
__ostrel_form_wizard_option --strict doctor 'exit with status 1 unless everything is good'
__ostrel_form_wizard_option --wizard desktop 'open the wizard at once'
__ostrel_form_wizard_option --render desktop 'draw a form into a picture and exit' -xa \
    '(__ostrel_form_wizard_files frm)'

complete -c $program -f -n '__ostrel_form_wizard_in generate keep' -a '(__ostrel_form_wizard_files json)'
complete -c $program -f -n '__ostrel_form_wizard_in keep' -a '(__ostrel_form_wizard_forms)'
complete -c $program -f -n '__ostrel_form_wizard_in status update' -a '(__ostrel_form_wizard_kept)'
complete -c $program -f -n '__ostrel_form_wizard_in compare merge lint' \
    -a '(__ostrel_form_wizard_files "(frm|bas|cls|ctl|pag|dob|vbp)")'
complete -c $program -f -n '__ostrel_form_wizard_in render' -a '(__ostrel_form_wizard_files "(frm|png|svg)")'
complete -c $program -f -n "__ostrel_form_wizard_in undo wizard doctor $listings"
complete -c $program -f -n '__ostrel_form_wizard_in dictionary; and test (count (commandline -opc)) = 2' \
    -a 'import export diff'
complete -c $program-desktop -f -n 'not contains -- --render (commandline -opc)' -a '(__ostrel_form_wizard_files vbp)'
