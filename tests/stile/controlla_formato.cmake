file(GLOB_RECURSE SORGENTI RELATIVE ${RADICE}
    ${RADICE}/core/*.cpp ${RADICE}/core/*.h ${RADICE}/riordino/*.cpp ${RADICE}/riordino/*.h
    ${RADICE}/estratti/*.cpp ${RADICE}/estratti/*.h ${RADICE}/zip/*.cpp ${RADICE}/zip/*.h
    ${RADICE}/screens/*.cpp ${RADICE}/screens/*.h ${RADICE}/app/*.cpp ${RADICE}/cli/*.cpp
    ${RADICE}/cli/*.h ${RADICE}/tests/*.cpp ${RADICE}/tests/*.h ${RADICE}/bench/*.cpp)
execute_process(COMMAND ${CLANG_FORMAT} --dry-run --Werror ${SORGENTI}
    WORKING_DIRECTORY ${RADICE} RESULT_VARIABLE esito ERROR_VARIABLE errori)
if(NOT esito EQUAL 0)
    string(SUBSTRING "${errori}" 0 3000 inizio)
    message(FATAL_ERROR "Sources not formatted (make format):\n${inizio}")
endif()
