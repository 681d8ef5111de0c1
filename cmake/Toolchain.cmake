# Compiler cache, linker, warnings and sanitizers: everything that holds for every target.
find_program(CCACHE ccache)
if(CCACHE)
    # Precompiled headers carry time stamps, and each clone has a path, that would spoil every look-up.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
        CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
endif()

find_program(MOLD mold)
if(MOLD AND NOT LAYOUTSMITH_SANITIZE)
    add_link_options(-fuse-ld=mold)
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    -Wimplicit-fallthrough -Werror -fno-strict-overflow -fPIC)
add_compile_definitions(QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
    QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    add_compile_options(-fpch-preprocess)
endif()

if(LAYOUTSMITH_SANITIZE)
    add_compile_options(-fsanitize=${LAYOUTSMITH_SANITIZE} -fno-omit-frame-pointer
        -fno-sanitize-recover=all
        -Wno-maybe-uninitialized) # GCC mistakes the sanitizers' own branches
    add_link_options(-fsanitize=${LAYOUTSMITH_SANITIZE})
endif()

# What a sanitizer is told holds for every test and every program that a test starts. The web engine
# brings an allocator of its own, which frees with other sizes than it was asked for.
set(support ${CMAKE_SOURCE_DIR}/tests/support)
set(LAYOUTSMITH_TEST_ENVIRONMENT
    QT_QPA_PLATFORM=offscreen
    ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=1:new_delete_type_mismatch=0
    LSAN_OPTIONS=suppressions=${support}/lsan.supp:print_suppressions=0
    UBSAN_OPTIONS=print_stacktrace=1
    TSAN_OPTIONS=suppressions=${support}/tsan.supp:second_deadlock_stack=1:die_after_fork=0)
if(LAYOUTSMITH_SANITIZE STREQUAL thread)
    # The engine's threads are its own business, and none of its locks can be seen.
    list(APPEND LAYOUTSMITH_TEST_ENVIRONMENT GTEST_FILTER=-WebView*)
endif()
if(LAYOUTSMITH_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link -Wno-error) # GCC judges the warnings
endif()
