# Options of every target: strict warnings, sanitizers, ccache, and the include root src/.

find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
    set(CMAKE_OBJCXX_COMPILER_LAUNCHER ${CCACHE})
endif()

function(larkspan_options target)
    # Designated initialisers that leave members at their defaults are used everywhere.
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
        $<$<BOOL:${LARKSPAN_WERROR}>:-Werror> -Wno-missing-field-initializers $<$<COMPILE_LANGUAGE:OBJCXX>:-fobjc-arc>)
    # In a unity build, g++ treats every source like a header.
    if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
    endif()
    if(LARKSPAN_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=${LARKSPAN_SANITIZE}
            -fno-sanitize-recover=all -fno-omit-frame-pointer
            # g++ reports its own instrumentation as reads of uninitialised values.
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

# larkspan_views(target): compiles what the toolkit generated for the target's views in a target of its own, which is
# not held to our warnings, and can be a unity build. Programs link its objects beside the target: if they were sources of
# the target, newer CMakes would see a cycle, because moc must read the target's headers before the views can be compiled.
function(larkspan_views target)
    get_target_property(sources ${target} SOURCES)
    set(generated ${sources})
    list(FILTER generated INCLUDE REGEX "qmlcache|qmltyperegistrations")
    list(FILTER sources EXCLUDE REGEX "qmlcache|qmltyperegistrations")
    set_target_properties(${target} PROPERTIES SOURCES "${sources}")
    add_library(${target}_views OBJECT ${generated})
    target_compile_options(${target}_views PRIVATE -w)
    target_include_directories(${target}_views PRIVATE $<TARGET_PROPERTY:${target},INCLUDE_DIRECTORIES>)
    target_compile_definitions(${target}_views PRIVATE $<TARGET_PROPERTY:${target},COMPILE_DEFINITIONS>)
    target_link_libraries(${target}_views PRIVATE Qt6::Quick)
    target_link_libraries(${target} INTERFACE $<TARGET_OBJECTS:${target}_views>)
endfunction()

# larkspan_test(name folder [DEPENDS targets…] [WHOLE] [THREADS]): one test program of every source directly inside
# tests/<folder>. ctest runs its cases one by one, or with WHOLE the program as a single test (for suites that
# share an expensive fixture, such as an X server). THREADS marks a suite whose code runs on several threads; the target
# larkspan_threads builds them, `make tsan` runs them.
function(larkspan_test name folder)
    cmake_parse_arguments(ARG "WHOLE;THREADS" "" "DEPENDS;ARGS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/${folder}/*.cpp)
    if(NOT sources)
        return()
    endif()
    add_executable(${name} ${sources})
    larkspan_options(${name})
    # Half the time of an optimised test goes into its expectations.
    target_compile_options(${name} PRIVATE ${LARKSPAN_TEST_FLAGS})
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} GTest::gmock GTest::gtest_main)
    if(ARG_WHOLE)
        add_test(NAME ${name} COMMAND ${name} ${ARG_ARGS})
    else()
        set(labels)
        if(ARG_THREADS)
            set(labels PROPERTIES LABELS threads)
            add_dependencies(larkspan_threads ${name})
        endif()
        gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST TEST_PREFIX "${folder}." ${labels})
    endif()
endfunction()
