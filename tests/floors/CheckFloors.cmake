# cmake -DSOURCE_DIR=... -P CheckFloors.cmake
# Fails if a file includes one from a floor above its own, or if headers include each other in a circle.

cmake_minimum_required(VERSION 3.25)

# From the ground up. Folders of one line stand side by side and may use each other.
set(floors
    "foundation geometry"
    "parameter"
    "clip"
    "camera"
    "track"
    "modules host"
    "project"
    "vxproject")

set(height 0)
foreach(floor IN LISTS floors)
    string(REPLACE " " ";" folders "${floor}")
    foreach(folder IN LISTS folders)
        set(height_of_${folder} ${height})
    endforeach()
    math(EXPR height "${height} + 1")
endforeach()

file(GLOB_RECURSE files RELATIVE "${SOURCE_DIR}/src" "${SOURCE_DIR}/src/*.h" "${SOURCE_DIR}/src/*.cpp")
file(GLOB_RECURSE tool_files RELATIVE "${SOURCE_DIR}/tools" "${SOURCE_DIR}/tools/*.h" "${SOURCE_DIR}/tools/*.cpp")
set(headers "")

foreach(file IN LISTS files tool_files)
    set(path "${SOURCE_DIR}/src/${file}")
    if(NOT EXISTS "${path}")
        set(path "${SOURCE_DIR}/tools/${file}")
    endif()
    string(REGEX REPLACE "/.*" "" folder "${file}")
    if(NOT DEFINED height_of_${folder})
        message(SEND_ERROR "${file}: the folder ${folder} stands on no floor")
        continue()
    endif()

    file(STRINGS "${path}" includes REGEX "^#include \"")
    list(TRANSFORM includes REPLACE "^#include \"([^\"]*)\".*" "\\1")
    foreach(include IN LISTS includes)
        string(REGEX REPLACE "/.*" "" other "${include}")
        if(DEFINED height_of_${other} AND height_of_${other} GREATER height_of_${folder})
            message(SEND_ERROR "${file} includes ${include}, which stands on a floor above it")
        endif()
    endforeach()
    if(file MATCHES "\\.h$")
        list(APPEND headers "${file}")
        set("includes_of_${file}" "${includes}")
    endif()
endforeach()

# Take away, again and again, each header that includes none of those that are left: a circle stays.
set(taken TRUE)
while(taken)
    set(taken FALSE)
    foreach(header IN LISTS headers)
        set(waits FALSE)
        foreach(include IN LISTS "includes_of_${header}")
            if(include IN_LIST headers)
                set(waits TRUE)
                break()
            endif()
        endforeach()
        if(NOT waits)
            list(REMOVE_ITEM headers "${header}")
            set(taken TRUE)
        endif()
    endforeach()
endwhile()

if(headers)
    list(JOIN headers "\n  " list)
    message(SEND_ERROR "these headers include each other in a circle, or include one that does:\n  ${list}")
endif()
