# Language level, warnings, hardening and sanitizers, the same for every target of ours.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 17)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release)
endif()

find_program(CCACHE ccache)
if(CCACHE)
    # Work trees of one machine share hits: paths below the source's parent are made relative.
    get_filename_component(MIRL_PARENT ${CMAKE_CURRENT_SOURCE_DIR} DIRECTORY)
    set(launcher ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${MIRL_PARENT} CCACHE_NOHASHDIR=1
        CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
    set(CMAKE_C_COMPILER_LAUNCHER ${launcher})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${launcher})
endif()

add_library(mirl_flags INTERFACE)
target_compile_options(mirl_flags INTERFACE
    -Wall -Wextra -Wpedantic -Werror -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wformat=2
    -Wimplicit-fallthrough -Wno-unknown-warning-option
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    -fstack-protector-strong -fno-plt)
target_link_options(mirl_flags INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)

if(MIRL_SANITIZE)
    target_compile_options(mirl_flags INTERFACE -fsanitize=${MIRL_SANITIZE} -fno-omit-frame-pointer
        -fno-sanitize-recover=all -g1)
    target_link_options(mirl_flags INTERFACE -fsanitize=${MIRL_SANITIZE})
    target_compile_definitions(mirl_flags INTERFACE MIRL_SANITIZED=1)
    if(MIRL_SANITIZE MATCHES thread)
        # Asio's fences: g++ says that the sanitizer does not see them. They order nothing that our code relies on.
        target_compile_options(mirl_flags INTERFACE -Wno-tsan)
    endif()
elseif(CMAKE_BUILD_TYPE STREQUAL "Release")
    target_compile_definitions(mirl_flags INTERFACE _FORTIFY_SOURCE=2 _GLIBCXX_ASSERTIONS)
    # Packed relocations: half a megabyte less that the loader reads, and mirl keeps in memory.
    target_link_options(mirl_flags INTERFACE -Wl,-z,pack-relative-relocs)
    option(MIRL_LTO "Link-time optimisation of the release build" ON)
    if(MIRL_LTO)
        set(CMAKE_INTERPROCEDURAL_OPTIMIZATION ON)
        set(CMAKE_CXX_COMPILE_OPTIONS_IPO -flto=2 -fno-fat-lto-objects)
        set(CMAKE_C_COMPILE_OPTIONS_IPO -flto=2 -fno-fat-lto-objects)
    endif()
endif()
