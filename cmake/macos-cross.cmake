# Compiles Larkspan for a Mac on Linux with clang and lld 19 and an SDK folder (-DCMAKE_OSX_SYSROOT=…,
# -DCMAKE_OSX_ARCHITECTURES=…). The result proves that every source compiles and that every framework function exists; it
# is not meant to be run. Used by `make macos`; see docs/macos.md.
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_PROCESSOR ${CMAKE_OSX_ARCHITECTURES})
set(CMAKE_OSX_DEPLOYMENT_TARGET 13.0 CACHE STRING "The oldest macOS that Larkspan runs on")
# CMake's own test compilations run this file again, with only these variables.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES CMAKE_OSX_SYSROOT CMAKE_OSX_ARCHITECTURES)
# The SDK may lack libSystem and libc++: nothing can be linked before our own link flags allow undefined symbols.
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

find_program(CROSS_CLANG clang++-19 REQUIRED)
foreach(language CXX OBJCXX)
    set(CMAKE_${language}_COMPILER ${CROSS_CLANG})
    set(CMAKE_${language}_COMPILER_TARGET ${CMAKE_OSX_ARCHITECTURES}-apple-macos${CMAKE_OSX_DEPLOYMENT_TARGET})
    # The SDK's own C++ library, not the newer one that may stand beside this clang: it lacks the same features as on a Mac.
    set(CMAKE_${language}_FLAGS_INIT "-stdlib=libc++ -stdlib++-isystem ${CMAKE_OSX_SYSROOT}/usr/include/c++/v1")
endforeach()
foreach(tool ar ranlib nm install-name-tool)
    string(TOUPPER ${tool} variable)
    string(REPLACE - _ variable ${variable})
    set(CMAKE_${variable} llvm-${tool}-19)
endforeach()

# Only the headers of the libraries we use from the distribution, each in a separate folder: never /usr/include itself,
# which has the headers of another C library.
list(APPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR}/macos-cross)

# Symbols of libc++, libSystem and Qt stay undefined; scripts/macos checks that no others do. Every object is linked, even
# if nothing uses it yet.
set(CMAKE_EXE_LINKER_FLAGS_INIT
    "-fuse-ld=lld -nostdlib -lobjc -Wl,-undefined,dynamic_lookup -Wl,-all_load")
