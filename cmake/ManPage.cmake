# cmake -DPROGRAM=<zantor> -DVERSION=<x.y.z> -DOUTPUT=<zantor.1> -P ManPage.cmake
# Writes the manual page from the text of `zantor --help`, so the two never disagree: the usage
# lines become the synopsis, the first paragraph the description, the rest is kept as it is.
execute_process(COMMAND ${PROGRAM} --help OUTPUT_VARIABLE _help RESULT_VARIABLE _status)
if(NOT _status EQUAL 0 OR _help STREQUAL "")
    message(FATAL_ERROR "${PROGRAM} --help failed (${_status})")
endif()

# roff: a backslash is written \e, a line starting with . or ' is protected by \&, - is \-.
string(REPLACE "\\" "\\e" _help "${_help}")
string(REPLACE "-" "\\-" _help "${_help}")
string(REPLACE "\n." "\n\\&." _help "${_help}")
string(REPLACE "\n'" "\n\\&'" _help "${_help}")

# The text is split into a CMake list of lines: its own ; [ and ] are set aside meanwhile, since
# CMake lists treat them specially.
string(ASCII 1 _semicolon)
string(ASCII 2 _open)
string(ASCII 3 _close)
string(REPLACE ";" "${_semicolon}" _help "${_help}")
string(REPLACE "[" "${_open}" _help "${_help}")
string(REPLACE "]" "${_close}" _help "${_help}")
string(REPLACE "\n" ";" _lines "${_help}")
set(_synopsis "")
set(_description "")
set(_body "")
set(_part synopsis)
foreach(_line IN LISTS _lines)
    string(REPLACE "${_semicolon}" ";" _line "${_line}")
    string(REPLACE "${_open}" "[" _line "${_line}")
    string(REPLACE "${_close}" "]" _line "${_line}")
    if(_part STREQUAL synopsis)
        if(_line STREQUAL "")
            set(_part description)
        else()
            string(REGEX REPLACE "^(usage: +| +)" "" _line "${_line}")
            string(APPEND _synopsis ".br\n${_line}\n")
        endif()
    elseif(_part STREQUAL description)
        if(_line STREQUAL "")
            set(_part body)
        else()
            string(APPEND _description "${_line}\n")
        endif()
    else()
        if(_line STREQUAL "")
            string(APPEND _body "\n")
        elseif(_line MATCHES "^[A-Z].*:$")
            string(REGEX REPLACE ":$" "" _heading "${_line}")
            string(TOUPPER "${_heading}" _heading)
            string(APPEND _body ".fi\n.SH \"${_heading}\"\n.nf\n")
        else()
            string(APPEND _body "${_line}\n")
        endif()
    endif()
endforeach()

# The date honours SOURCE_DATE_EPOCH, for reproducible packages.
string(TIMESTAMP _date "%Y-%m-%d" UTC)
file(WRITE ${OUTPUT}
".TH ZANTOR 1 \"${_date}\" \"Zantor ${VERSION}\" \"User Commands\"\n"
".SH NAME\n"
"zantor \\- print PADS PowerPCB decal and parttype libraries as drawing sheets\n"
".SH SYNOPSIS\n"
".nf\n${_synopsis}.fi\n"
".SH DESCRIPTION\n"
"${_description}"
".nf\n${_body}.fi\n"
".SH FILES\n"
".TP\n"
"\\fI~/.config/Brovik/Zantor.conf\\fR\n"
"The settings of the desktop program, which \\fBzantor print\\fR reads.\n"
".TP\n"
"\\fI<prefix>/share/zantor/\\fR\n"
"The bundled stroke font romans.fnt and the help pages.\n")
