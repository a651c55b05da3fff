#include "lint/Rules.h"

#include "lint/Checks.h"

namespace formwizard::lint {
namespace {

using enum Severity;

constexpr std::array Table{
    Rule{"utf-16", Error, "The file is in UTF-16. Nothing else of it is looked at.",
         "save it in the code page of the project", CheckUtf16},
    Rule{"utf-8-mark", Error, "The file begins with the mark of UTF-8, which is no line of Visual Basic.",
         "save it in the code page of the project, without a mark", CheckUtf8Mark},
    Rule{
        "utf-8", Warning,
        "All letters above ASCII are in UTF-8, at least four different ones: Visual Basic shows two or three for each.",
        "save the file in the code page of the project", CheckUtf8},
    Rule{"line-ends", Error, "Lines end without a carriage return; told once, at the first.",
         "save the file with CRLF line ends; in git: *.frm text eol=crlf", CheckLineEnds},
    Rule{"conflict-marker", Error, "A merge left a conflict. What the file says is not looked at before it is solved.",
         "solve the conflict and remove its marks", CheckConflictMarkers},
    Rule{"line-length", Error, "A line of code has more than 1,023 bytes.", "break the line up", CheckLineLengths},
    Rule{"continuations", Error, "A line of code goes on in more than 24 further lines.",
         "make several statements of it", CheckContinuations},
    Rule{"module-length", Error, "A module has more than 65,534 lines of code.", "make two modules of it",
         CheckModuleLength},
    Rule{"broken-form", Error, "A form's lines up to its code cannot be read: a Begin, End or property is broken.",
         "restore the line from an earlier state of the file", CheckTree},
    Rule{"duplicate-control", Error,
         "Two controls have one name and not an index each. Arrays of controls are no fault.",
         "give one of them another name, or each an index", CheckDuplicateControls},
    Rule{"control-count", Error, "A form has more than 254 names of controls; an array has one.",
         "make arrays of controls, or move controls to a control of your own", CheckControlCount},
    Rule{"name-length", Note, "A form's or control's name has more than 40 characters; files with longer ones load.",
         "choose a shorter name", CheckNameLengths},
    Rule{"control-library", Error,
         "A control's library is not among the lines \"Object =\" of the form: one that comes with Visual Basic, or, "
         "in a "
         "project that is looked at as a whole, any when there is no such line.",
         "add the line, as another form of the project has it", CheckControlLibraries},
    Rule{"companion-reference", Error,
         "A property refers to a place behind the end of the .frx, or to a file that is not there, which is told once.",
         "restore the file that belongs to the form, or remove the property", CheckCompanionReferences},
    Rule{"unbalanced-procedure", Error,
         "A procedure, Type, Enum or #If does not end, or ends without a beginning; the first of the file.",
         "complete it", CheckProcedures},
    Rule{"unbalanced-block", Error,
         "If, For, Do, While, Select or With does not end, or ends without a beginning; the first of a procedure.",
         "complete the block", CheckBlocks},
    Rule{"duplicate-procedure", Error, "Two procedures in one branch of #If have one name.",
         "rename or remove one of them", CheckDuplicateProcedures},
    Rule{"broken-project", Error, "A line of a project is neither a section nor \"Key=Value\".",
         "restore the line from an earlier state of the file", CheckProjectLines},
    Rule{"missing-file", Error, "A project lists a file that is not there.",
         "restore the file, or remove the line from the project", CheckListedFiles},
    Rule{"handler", Note,
         "A procedure of a form is named as one for an event, and there is no such control; Visual Basic compiles it.",
         "rename it as the control, or remove it", CheckHandlers, true},
};

}  // namespace

std::string_view WordOf(Severity severity) {
  constexpr std::array<std::string_view, 3> words{"error", "warning", "note"};
  return words[static_cast<std::size_t>(severity)];
}

std::span<const Rule> Rules() { return Table; }

}  // namespace formwizard::lint
