# Compiles Larkspan for a Mac on Linux: clang and lld of version 19 against an SDK folder that the caller names
# (-DCMAKE_OSX_SYSROOT=…, -DCMAKE_OSX_ARCHITECTURES=…). What comes out proves that every source compiles and that
# every call to a framework exists; it is not meant to be run. `make macos` drives it, docs/macos.md explains it.
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_PROCESSOR ${CMAKE_OSX_ARCHITECTURES})
set(CMAKE_OSX_DEPLOYMENT_TARGET 13.0 CACHE STRING "The oldest macOS that Larkspan runs on")
# CMake's own trial compilations run this file again and know only what is named here.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES CMAKE_OSX_SYSROOT CMAKE_OSX_ARCHITECTURES)
# The SDK may lack libSystem and libc++: nothing links until our own link says which symbols may stay open.
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

find_program(CROSS_CLANG clang++-19 REQUIRED)
foreach(language CXX OBJCXX)
    set(CMAKE_${language}_COMPILER ${CROSS_CLANG})
    set(CMAKE_${language}_COMPILER_TARGET ${CMAKE_OSX_ARCHITECTURES}-apple-macos${CMAKE_OSX_DEPLOYMENT_TARGET})
    # The SDK's own C++ library, not the newer one that may stand beside this clang: it lacks what a Mac's lacks.
    set(CMAKE_${language}_FLAGS_INIT "-stdlib=libc++ -stdlib++-isystem ${CMAKE_OSX_SYSROOT}/usr/include/c++/v1")
endforeach()
foreach(tool ar ranlib nm install-name-tool)
    string(TOUPPER ${tool} variable)
    string(REPLACE - _ variable ${variable})
    set(CMAKE_${variable} llvm-${tool}-19)
endforeach()

# Of the distribution, only the headers of the libraries we use, each in a folder of its own: never /usr/include
# itself, where another C library's headers are.
list(APPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR}/macos-cross)

# Symbols of libc++, libSystem and Qt stay open; scripts/macos checks that nothing else does. Every object is linked,
# also one that nothing calls yet.
set(CMAKE_EXE_LINKER_FLAGS_INIT
    "-fuse-ld=lld -nostdlib -lobjc -Wl,-undefined,dynamic_lookup -Wl,-all_load")
