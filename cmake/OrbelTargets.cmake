# What all targets of the project share: language level, warnings, sanitizers, Qt's code generators. All of it holds in
# the folders of this project alone.

set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
if(NOT DEFINED CMAKE_CXX_STANDARD)
    set(CMAKE_CXX_STANDARD 17)
endif()
if(NOT DEFINED CMAKE_CXX_EXTENSIONS)
    set(CMAKE_CXX_EXTENSIONS OFF)
endif()

if(top_level)
    set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
    set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
    set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
    set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

    if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
        set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Build type" FORCE)
    endif()

    # ccache leaves precompiled headers alone unless it is told that their time stamps do not matter; and a clone at
    # another path finds what this one compiled when paths are taken relative to the checkout. What a source includes it
    # takes from the compiler (CCACHE_DEPEND): otherwise a first build preprocesses each source twice.
    find_program(ORBEL_CCACHE ccache)
    if(ORBEL_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
        set(CMAKE_CXX_COMPILER_LAUNCHER
            "${CMAKE_COMMAND}" -E env CCACHE_DEPEND=1 CCACHE_SLOPPINESS=pch_defines,time_macros
            "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" CCACHE_NOHASHDIR=1 "${ORBEL_CCACHE}")
    endif()

    # Every test links the whole library; the usual linker takes ten times as long as this one.
    find_program(ORBEL_LLD ld.lld)
    if(ORBEL_LLD)
        add_link_options(-fuse-ld=lld)
    endif()
endif()

if(ORBEL_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

# Fuzzing needs the coverage of all code; only the programs themselves link the fuzzer.
if(ORBEL_FUZZ)
    set(fuzz_sanitizers address,undefined,float-cast-overflow)
    add_compile_options(-fsanitize=fuzzer-no-link,${fuzz_sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${fuzz_sanitizers})
endif()

# CMake has moc run only after a change of a file that it knows; this has it know the list of headers, too, so that a new
# one counts in a build folder that is there already.
function(orbel_watch_headers target)
    get_target_property(headers ${target} SOURCES)
    list(FILTER headers INCLUDE REGEX "\\.h$")
    if(headers)
        set(list "${CMAKE_CURRENT_BINARY_DIR}/${target}_headers.txt")
        file(CONFIGURE OUTPUT "${list}" CONTENT "${headers}\n" @ONLY)
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${list}")
    endif()
endfunction()

# orbel_settings(TARGET): language level, warnings and hidden symbols.
function(orbel_settings target)
    orbel_watch_headers(${target})
    set_target_properties(${target} PROPERTIES
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    target_compile_features(${target} PRIVATE cxx_std_17)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual
        $<$<BOOL:${ORBEL_WERROR}>:-Werror>)
    if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        # Told of what a header takes from an unnamed namespace; here every source looks like a header.
        target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
    endif()
endfunction()

# orbel_strict_settings(TARGET): the settings above and the stricter ones of library code.
function(orbel_strict_settings target)
    orbel_settings(${target})
    target_compile_options(${target} PRIVATE -Wconversion)
    if(NOT CMAKE_UNITY_BUILD)
        # With several sources at once the headers of one would shadow what is another's own.
        target_compile_options(${target} PRIVATE -Wshadow)
    endif()
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
        QT_DEPRECATED_WARNINGS)
endfunction()

# orbel_precompile(TARGET): what nearly all sources include, compiled once for all targets with the strict settings: it
# takes as long as ten sources. A source includes what it uses all the same: builds without it (presets asan and clang) tell.
function(orbel_precompile target)
    if(NOT TARGET orbel_precompiled)
        set(source "${PROJECT_BINARY_DIR}/precompiled.cpp")
        file(CONFIGURE OUTPUT "${source}" CONTENT "")
        add_library(orbel_precompiled OBJECT "${source}")
        orbel_strict_settings(orbel_precompiled)
        set_target_properties(orbel_precompiled PROPERTIES AUTOMOC OFF AUTORCC OFF)
        target_link_libraries(orbel_precompiled PRIVATE Qt5::Widgets)
        target_precompile_headers(orbel_precompiled PRIVATE <QtCore> <QtWidgets>)
    endif()
    target_precompile_headers(${target} REUSE_FROM orbel_precompiled)
endfunction()
