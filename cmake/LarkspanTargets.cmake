# What every target of the project has in common: strict warnings, sanitizers, ccache, and the include root src/.

find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
    set(CMAKE_OBJCXX_COMPILER_LAUNCHER ${CCACHE})
endif()

function(larkspan_options target)
    # A designated initialiser that leaves members at their defaults is how values are made here.
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
        $<$<BOOL:${LARKSPAN_WERROR}>:-Werror> -Wno-missing-field-initializers $<$<COMPILE_LANGUAGE:OBJCXX>:-fobjc-arc>)
    # In a unity build g++ takes every source for a header that others may include, too.
    if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
    endif()
    if(LARKSPAN_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=${LARKSPAN_SANITIZE}
            -fno-sanitize-recover=all -fno-omit-frame-pointer
            # g++ takes its own instrumentation for reads of what was never written.
            -Wno-maybe-uninitialized)
        target_link_options(${target} PRIVATE -fsanitize=${LARKSPAN_SANITIZE})
    endif()
endfunction()

# larkspan_library(folder [ROOMS folders…] [DEPENDS targets…]): the static library of one folder under src/, made of
# every source directly inside it and inside its rooms (.mm is Objective-C++, in the Mac's folder only).
# `adapters/x11` becomes larkspan_x11.
function(larkspan_library folder)
    cmake_parse_arguments(ARG "" "" "ROOMS;DEPENDS" ${ARGN})
    get_filename_component(name ${folder} NAME)
    set(sources)
    foreach(room IN LISTS ARG_ROOMS ITEMS .)
        file(GLOB found CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${folder}/${room}/*.cpp
            ${CMAKE_SOURCE_DIR}/src/${folder}/${room}/*.mm)
        list(APPEND sources ${found})
    endforeach()
    if(sources)
        add_library(larkspan_${name} STATIC ${sources})
        larkspan_options(larkspan_${name})
        target_include_directories(larkspan_${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
        target_link_libraries(larkspan_${name} PUBLIC ${ARG_DEPENDS})
    else()
        add_library(larkspan_${name} INTERFACE)
        target_include_directories(larkspan_${name} INTERFACE ${CMAKE_SOURCE_DIR}/src)
        target_link_libraries(larkspan_${name} INTERFACE ${ARG_DEPENDS})
    endif()
endfunction()

# larkspan_test(name folder [DEPENDS targets…] [WHOLE]): one test program of every source directly inside
# tests/<folder>. ctest runs its cases one by one, or with WHOLE the program as a single test (for suites that
# share an expensive fixture, such as an X server).
function(larkspan_test name folder)
    cmake_parse_arguments(ARG "WHOLE" "" "DEPENDS;ARGS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/${folder}/*.cpp)
    if(NOT sources)
        return()
    endif()
    add_executable(${name} ${sources})
    larkspan_options(${name})
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} GTest::gmock GTest::gtest_main)
    if(ARG_WHOLE)
        add_test(NAME ${name} COMMAND ${name} ${ARG_ARGS})
    else()
        gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST TEST_PREFIX "${folder}.")
    endif()
endfunction()
