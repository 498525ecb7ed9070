# cmake -DPROGRAM=... -DREADME=... -DFOLDER=... -P CompareWithReadme.cmake
# Fails unless README.md shows the outside project's two files as they are, and what the program prints.

file(READ "${README}" readme)

function(expect_shown what language text)
    string(FIND "${readme}" "```${language}\n${text}```\n" place)
    if(place EQUAL -1)
        message(SEND_ERROR "${README} does not show ${what}:\n${text}")
    endif()
endfunction()

file(READ "${FOLDER}/first_minute.cpp" source)
file(READ "${FOLDER}/CMakeLists.txt" build)
execute_process(COMMAND "${PROGRAM}" OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)

expect_shown("the program" cpp "${source}")
expect_shown("its CMakeLists.txt" cmake "${build}")
expect_shown("what the program prints" text "${printed}")
