# cmake -DREADME=... [-DCONSUMER=FOLDER -DPROGRAM=...] [-DDEMO=SCRIPT -DTOOL=...] -P CompareWithReadme.cmake
# Fails unless README.md shows what there is: the outside project's two files as they are and what its program prints;
# the table that the demo prints.

cmake_minimum_required(VERSION 3.25)

file(READ "${README}" readme)

function(expect_shown what language text)
    string(FIND "${readme}" "```${language}\n${text}```\n" place)
    if(place EQUAL -1)
        message(SEND_ERROR "${README} does not show ${what}:\n${text}")
    endif()
endfunction()

if(DEFINED CONSUMER)
    file(READ "${CONSUMER}/first_minute.cpp" source)
    file(READ "${CONSUMER}/CMakeLists.txt" build)
    execute_process(COMMAND "${PROGRAM}" OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
    expect_shown("the program" cpp "${source}")
    expect_shown("its CMakeLists.txt" cmake "${build}")
    expect_shown("what the program prints" text "${printed}")
endif()

if(DEFINED DEMO)
    execute_process(COMMAND "${DEMO}" "${TOOL}" OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX MATCH "\n(frame +x1[^\n]*\n( +[0-9][^\n]*\n)+)" found "${printed}")
    if(NOT found)
        message(FATAL_ERROR "the demo prints no table of corners:\n${printed}")
    endif()
    expect_shown("the table of the demo" text "${CMAKE_MATCH_1}")
endif()
