# kalhost's manual page, written from what `kalhost --help` says, so that
# the two never disagree. Run as a script:
#
#   cmake -DKALHOST=<program> -DBUILD_DIR=<build tree> -DPREFIX=<package prefix>
#         -DDOCDIR=<documentation folder under the prefix> -DVERSION=<x.y.z>
#         -DOUTPUT=<kalhost.1> -P KalManPage.cmake
#
# The help names places found from the program's own folder; in the build
# tree they lie under BUILD_DIR, which the page replaces with the prefix the
# package installs under, so that the page names the installed places.

cmake_minimum_required(VERSION 3.18)

foreach(variable KALHOST BUILD_DIR PREFIX DOCDIR VERSION OUTPUT)
    if(NOT DEFINED ${variable})
        message(FATAL_ERROR "KalManPage.cmake needs -D${variable}=...")
    endif()
endforeach()

# A sanitized build's program reports what Qt keeps until exit as leaks;
# the help needs no window system.
set(ENV{ASAN_OPTIONS} "detect_leaks=0")
set(ENV{QT_QPA_PLATFORM} "offscreen")
execute_process(COMMAND ${KALHOST} --help OUTPUT_VARIABLE help RESULT_VARIABLE result)
if(NOT result EQUAL 0 OR help STREQUAL "")
    message(FATAL_ERROR "${KALHOST} --help failed (${result})")
endif()

get_filename_component(build_dir "${BUILD_DIR}" REALPATH)

# Text made safe for roff: the build's places replaced by the package's,
# backslashes written out, hyphens as minus signs (what a reader types), and
# no line taken for a request.
function(kal_roff_text out text)
    string(REPLACE "${build_dir}/" "${PREFIX}/" text "${text}")
    string(REPLACE "\\" "\\e" text "${text}")
    string(REPLACE "-" "\\-" text "${text}")
    string(REGEX REPLACE "^([.'])" "\\\\&\\1" text "${text}")
    set(${out} "${text}" PARENT_SCOPE)
endfunction()

# One entry of a list: its name in bold, its help under it.
function(kal_roff_entry out name text)
    kal_roff_text(name "${name}")
    kal_roff_text(text "${text}")
    set(${out} "${${out}}.TP\n.B ${name}\n${text}\n" PARENT_SCOPE)
endfunction()

string(REPLACE ";" "\\;" help "${help}")
string(REPLACE "\n" ";" lines "${help}")

# The help is read entry by entry: an option's (or argument's) help runs on
# over the lines indented under it. Qt wraps at spaces, and cuts a word only
# where a line holds no space at all, so such a line joins the next without
# one.
set(section "")
set(synopsis "")
set(description "")
set(options "")
set(arguments "")
set(name "")
set(text "")
set(joiner " ")
foreach(line IN LISTS lines)
    if(line MATCHES "^  ([^ ]+( [^ ]+)*)   *([^ ].*)$" OR line STREQUAL "Options:" OR line STREQUAL "Arguments:"
       OR line STREQUAL "")
        if(NOT name STREQUAL "")
            kal_roff_entry(${section} "${name}" "${text}")
            set(name "")
        endif()
    endif()
    if(line MATCHES "^Usage: [^ ]+ (.*)$")
        kal_roff_text(synopsis "${CMAKE_MATCH_1}")
        set(section description)
    elseif(line STREQUAL "Options:")
        set(section options)
    elseif(line STREQUAL "Arguments:")
        set(section arguments)
    elseif(line STREQUAL "")
        continue()
    elseif(section STREQUAL "description")
        kal_roff_text(paragraph "${line}")
        string(APPEND description "${paragraph}\n.PP\n")
    elseif(line MATCHES "^  ([^ ]+( [^ ]+)*)   *([^ ].*)$")
        set(name "${CMAKE_MATCH_1}")
        set(text "${CMAKE_MATCH_3}")
        set(joiner " ")
    elseif(line MATCHES "^ +([^ ].*)$" AND NOT name STREQUAL "")
        string(APPEND text "${joiner}${CMAKE_MATCH_1}")
        set(joiner " ")
        if(NOT CMAKE_MATCH_1 MATCHES " ")
            set(joiner "")
        endif()
    endif()
endforeach()
if(NOT name STREQUAL "")
    kal_roff_entry(${section} "${name}" "${text}")
endif()

string(TIMESTAMP year "%Y" UTC)
set(page ".TH KALHOST 1 \"${year}\" \"kaldefaults ${VERSION}\" \"User Commands\"\n")
string(APPEND page ".SH NAME\nkalhost \\- Kalibra stand\\-in host, a scene inspector that loads the KalDefaults plug\\-in\n")
string(APPEND page ".SH SYNOPSIS\n.B kalhost\n${synopsis}\n")
string(APPEND page ".SH DESCRIPTION\n${description}")
string(APPEND page ".SH OPTIONS\n${options}")
string(APPEND page ".SH ARGUMENTS\n${arguments}")
kal_roff_text(docdir "${PREFIX}/${DOCDIR}")
string(APPEND page ".SH SEE ALSO\nThe manual, README.md, in ${docdir}/.\n")
file(WRITE "${OUTPUT}" "${page}")
