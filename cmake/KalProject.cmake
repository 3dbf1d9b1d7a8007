# Helpers shared by every target of the project.

# Warnings are errors in our own code; third-party headers come in as system
# includes through their imported targets, so they do not trip this.
function(kal_project_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Werror)
endfunction()

# kal_add_test(<name> SOURCES <files...> [HOST_APP] [LIBS <targets...>]
#              [DEFINITIONS <defs...>] [DEPENDS <targets...>])
#
# One line per test file: builds the executable, links the plug-in core, the
# stand-in host and the test support library, registers it with CTest and runs
# it on the offscreen platform. HOST_APP links kalhost's application library
# and its test helpers as well, for the tests that drive kalhost's window;
# DEPENDS names what the test runs or loads without linking it.
function(kal_add_test name)
    cmake_parse_arguments(ARG "HOST_APP" "" "SOURCES;LIBS;DEFINITIONS;DEPENDS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    set(testing KalTesting)
    if(ARG_HOST_APP)
        set(testing KalHostAppTesting)
    endif()
    target_link_libraries(${name} PRIVATE KalDefaultsCore KalibraExtenderAPI KalSceneGraphExt
                                          Qt5::Test Qt5::Widgets Coin::Coin ${testing} ${ARG_LIBS})
    target_compile_definitions(${name} PRIVATE ${ARG_DEFINITIONS})
    if(ARG_DEPENDS)
        add_dependencies(${name} ${ARG_DEPENDS})
    endif()
    kal_project_warnings(${name})
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;KAL_SOURCE_DIR=${PROJECT_SOURCE_DIR}"
        TIMEOUT 300)
endfunction()
