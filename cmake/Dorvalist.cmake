# Compiler settings and the three shapes of target: a room, a program and a test.

find_program(DORV_CCACHE ccache)
if(DORV_CCACHE)
    # The two sloppiness words are what ccache needs to cache files that use a precompiled header.
    set(DORV_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${DORV_CCACHE})
    set(CMAKE_C_COMPILER_LAUNCHER ${DORV_LAUNCHER})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${DORV_LAUNCHER})
endif()

# Each of the many test programs is linked against the whole of the toolkit: the quicker linker saves a fifth of a build.
find_program(DORV_LLD ld.lld)
if(DORV_LLD)
    add_link_options(-fuse-ld=lld)
endif()

add_library(dorv_options INTERFACE)
target_compile_options(dorv_options INTERFACE -Wall -Wextra $<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
target_compile_definitions(dorv_options INTERFACE
    QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(DORV_WERROR)
    target_compile_options(dorv_options INTERFACE -Werror)
endif()
if(DORV_SANITIZE)
    target_compile_options(dorv_options INTERFACE -fsanitize=${DORV_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(dorv_options INTERFACE -fsanitize=${DORV_SANITIZE})
endif()

# dorv_room(NAME LIBS lib...): the static library dorv_NAME of all sources of this folder.
# PCH names the header that the room precompiles ("core" or "widgets").
function(dorv_room name)
    cmake_parse_arguments(arg "" "PCH" "LIBS" ${ARGN})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    add_library(dorv_${name} STATIC ${sources})
    target_include_directories(dorv_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(dorv_${name} PUBLIC dorv_options ${arg_LIBS})
    dorv_precompile(dorv_${name} ${arg_PCH})
endfunction()

# dorv_precompile(TARGET KIND): a precompiled header is built once and shared by all targets of its kind. Those of the program,
# core and widgets, are strict: no plain bytes where a text is wanted. Tests may do so, and have one of their own.
function(dorv_precompile target kind)
    set(pch dorv_pch_${kind})
    set(strict $<$<NOT:$<STREQUAL:${kind},test>>:QT_NO_CAST_FROM_ASCII>)
    target_compile_definitions(${target} PRIVATE ${strict})
    # Optimising the tests themselves costs more time than it saves.
    set(plain $<$<AND:$<STREQUAL:${kind},test>,$<CONFIG:Debug>>:-O0>)
    target_compile_options(${target} PRIVATE ${plain})
    if(NOT TARGET ${pch})
        file(WRITE ${CMAKE_BINARY_DIR}/${pch}.cpp "")
        add_library(${pch} OBJECT ${CMAKE_BINARY_DIR}/${pch}.cpp)
        set_target_properties(${pch} PROPERTIES AUTOMOC OFF AUTORCC OFF)
        target_link_libraries(${pch} PRIVATE dorv_options Qt6::Core
            $<$<NOT:$<STREQUAL:${kind},core>>:Qt6::Widgets> $<$<STREQUAL:${kind},test>:Qt6::Network> $<$<STREQUAL:${kind},test>:Qt6::Test>)
        target_compile_definitions(${pch} PRIVATE ${strict})
        target_compile_options(${pch} PRIVATE ${plain})
        target_precompile_headers(${pch} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/pch_${kind}.h)
    endif()
    target_precompile_headers(${target} REUSE_FROM ${pch})
    # The collected output of moc is empty for most tests, and isn't worth reading a precompiled header.
    if(kind STREQUAL "test")
        set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/mocs_compilation.cpp
            PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
    endif()
endfunction()

# dorv_test(NAME SOURCES file... LIBS lib... [TIMEOUT seconds]): one Qt Test program, run offscreen
# with the environment nailed down, so that no machine's locale, zone, style or settings reach it.
function(dorv_test name)
    cmake_parse_arguments(arg "" "TIMEOUT" "SOURCES;LIBS" ${ARGN})
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 300)
    endif()
    add_executable(${name} ${arg_SOURCES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_compile_definitions(${name} PRIVATE DORV_REFERENCE="${PROJECT_SOURCE_DIR}/assets/reference")
    target_link_libraries(${name} PRIVATE ${arg_LIBS} Qt6::Widgets Qt6::Network Qt6::Test)
    dorv_precompile(${name} test)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT ${arg_TIMEOUT} ENVIRONMENT
        "QT_QPA_PLATFORM=offscreen:configfile=${PROJECT_SOURCE_DIR}/tests/support/screen.json;LC_ALL=C.UTF-8;TZ=Europe/Athens;QT_HASH_SEED=0;QT_STYLE_OVERRIDE=;XDG_CONFIG_HOME=${CMAKE_BINARY_DIR}/test-home/config;XDG_DATA_HOME=${CMAKE_BINARY_DIR}/test-home/data;HOME=${CMAKE_BINARY_DIR}/test-home;QT_SCALE_FACTOR=1;ASAN_OPTIONS=detect_leaks=0")
endfunction()

# The PostgreSQL server that a run of tests starts for itself, and stops.
function(dorv_test_server)
    get_property(known GLOBAL PROPERTY DORV_TEST_SERVER)
    if(NOT known)
        set_property(GLOBAL PROPERTY DORV_TEST_SERVER TRUE)
        set(script ${PROJECT_SOURCE_DIR}/tests/support/postgres.sh)
        add_test(NAME postgres_start COMMAND ${script} start ${CMAKE_BINARY_DIR}/postgres.server)
        add_test(NAME postgres_stop COMMAND ${script} stop ${CMAKE_BINARY_DIR}/postgres.server)
        set_tests_properties(postgres_start PROPERTIES FIXTURES_SETUP postgres TIMEOUT 120)
        set_tests_properties(postgres_stop PROPERTIES FIXTURES_CLEANUP postgres TIMEOUT 60)
    endif()
endfunction()

# dorv_server_tests(NAME...): these tests run on that server only.
function(dorv_server_tests)
    dorv_test_server()
    foreach(name ${ARGN})
        get_test_property(${name} ENVIRONMENT environment)
        set_tests_properties(${name} PROPERTIES FIXTURES_REQUIRED postgres ENVIRONMENT
            "${environment};DORV_ENGINE=postgres;DORV_POSTGRES=${CMAKE_BINARY_DIR}/postgres.server")
    endforeach()
endfunction()

# dorv_engine_tests(NAME...): these tests, which run on SQLite, run once more on the server, as NAME_postgres.
function(dorv_engine_tests)
    foreach(name ${ARGN})
        add_test(NAME ${name}_postgres COMMAND ${name})
        get_test_property(${name} ENVIRONMENT environment)
        get_test_property(${name} TIMEOUT timeout)
        set_tests_properties(${name}_postgres PROPERTIES TIMEOUT ${timeout} ENVIRONMENT "${environment}")
        dorv_server_tests(${name}_postgres)
    endforeach()
endfunction()

# dorv_room_tests(LIBS lib... [HELPERS file...] [PROGRAM target] [ENGINES name...] [SERVER name...] [ALONE name...]):
# each test_NAME.cpp of this folder is a test of that name. All get the HELPERS' sources, and find the PROGRAM that they start as
# DORV_PROGRAM. Those under ENGINES run on SQLite and on the server, those under SERVER on the server only, those under ALONE
# while no other test does. What one test needs beyond that is added to its target afterwards.
function(dorv_room_tests)
    cmake_parse_arguments(arg "" "PROGRAM" "LIBS;HELPERS;ENGINES;SERVER;ALONE" ${ARGN})
    if(arg_HELPERS)
        get_filename_component(room ${CMAKE_CURRENT_SOURCE_DIR} NAME)
        add_library(test_helpers_${room} STATIC ${arg_HELPERS})
        target_include_directories(test_helpers_${room} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
        target_link_libraries(test_helpers_${room} PUBLIC ${arg_LIBS} Qt6::Widgets Qt6::Network Qt6::Test)
        dorv_precompile(test_helpers_${room} test)
        list(PREPEND arg_LIBS test_helpers_${room})
    endif()
    file(GLOB files CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/test_*.cpp)
    foreach(file ${files})
        get_filename_component(name ${file} NAME_WE)
        dorv_test(${name} SOURCES ${file} LIBS ${arg_LIBS})
        if(arg_PROGRAM)
            target_compile_definitions(${name} PRIVATE DORV_PROGRAM="$<TARGET_FILE:${arg_PROGRAM}>")
            add_dependencies(${name} ${arg_PROGRAM})
        endif()
    endforeach()
    foreach(name ${arg_ENGINES})
        dorv_engine_tests(test_${name})
    endforeach()
    foreach(name ${arg_SERVER})
        dorv_server_tests(test_${name})
    endforeach()
    foreach(name ${arg_ALONE})
        set_tests_properties(test_${name} PROPERTIES RUN_SERIAL TRUE)
        if(TEST test_${name}_postgres)
            set_tests_properties(test_${name}_postgres PROPERTIES RUN_SERIAL TRUE)
        endif()
    endforeach()
endfunction()
