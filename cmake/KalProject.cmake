# Helpers shared by every target of the project.

# Warnings are errors in our own code; third-party headers come in as system
# includes through their imported targets, so they do not trip this.
function(kal_project_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Werror)
endfunction()

# kal_add_test(<name> SOURCES <files...> [LIBS <targets...>] [DEFINITIONS <defs...>])
#
# One line per test file: builds the executable, links the plug-in core and the
# stand-in host, registers it with CTest and runs it on the offscreen platform.
function(kal_add_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS;DEFINITIONS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PRIVATE KalDefaultsCore KalibraExtenderAPI KalSceneGraphExt
                                          Qt5::Test Qt5::Widgets Coin::Coin ${ARG_LIBS})
    # Tests reach the stand-in host's test interface as well as its contract.
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/host/lib)
    target_compile_definitions(${name} PRIVATE ${ARG_DEFINITIONS})
    kal_project_warnings(${name})
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;KAL_SOURCE_DIR=${PROJECT_SOURCE_DIR}"
        TIMEOUT 300)
endfunction()
