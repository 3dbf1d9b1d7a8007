# Builds the Debian package of a build into a folder of its own and has
# lintian check it: an error, or a warning the package's overrides do not
# explain, fails. Run as a script:
#
#   cmake -DCPACK=<cpack> -DLINTIAN=<lintian> -DBUILD_DIR=<build tree>
#         -DOUTPUT_DIR=<folder> -P KalPackageLint.cmake

cmake_minimum_required(VERSION 3.18)

foreach(variable CPACK LINTIAN BUILD_DIR OUTPUT_DIR)
    if(NOT DEFINED ${variable})
        message(FATAL_ERROR "KalPackageLint.cmake needs -D${variable}=...")
    endif()
endforeach()

file(REMOVE_RECURSE "${OUTPUT_DIR}")
file(MAKE_DIRECTORY "${OUTPUT_DIR}")
execute_process(COMMAND "${CPACK}" -G DEB -B "${OUTPUT_DIR}" --config "${BUILD_DIR}/CPackConfig.cmake"
                RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
file(GLOB packages "${OUTPUT_DIR}/*.deb")
if(NOT result EQUAL 0 OR NOT packages)
    message(FATAL_ERROR "cpack made no package (${result}):\n${output}")
endif()

execute_process(COMMAND "${LINTIAN}" --fail-on error,warning ${packages}
                RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
message("${output}")
if(NOT result EQUAL 0)
    message(FATAL_ERROR "lintian found errors or unexplained warnings in ${packages}")
endif()
message("lintian: no errors, no unexplained warnings in ${packages}")
