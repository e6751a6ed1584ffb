# mirl_batches(OUT NAME SOURCE...): the sources, or, where MIRL_BATCHES is on, few translation units that include them.
# Most of what a file costs the compiler are the headers that it shares with its neighbours. The build without batches
# is the one that sees whether each file includes what it uses.
option(MIRL_BATCHES "Compile product files in batches" OFF)
option(MIRL_TEST_BATCHES "Compile test files in batches" ON)

# Lines of source in one translation unit: two cores share what they have to do, and none takes half a minute.
set(MIRL_BATCH_LINES 900)

if(MIRL_BATCHES)
    # g++ takes what a batch includes for a header, and a coroutine's frame for a type that it hands out.
    target_compile_options(mirl_flags INTERFACE -Wno-subobject-linkage)
endif()

find_package(Python3 REQUIRED COMPONENTS Interpreter)

function(mirl_batches out name)
    if(NOT MIRL_BATCHES AND NOT (name MATCHES "tests$" AND MIRL_TEST_BATCHES))
        set(${out} ${ARGN} PARENT_SCOPE)
        return()
    endif()
    set(program ${CMAKE_SOURCE_DIR}/cmake/batches.py)
    execute_process(COMMAND ${Python3_EXECUTABLE} ${program} ${CMAKE_BINARY_DIR}/batches ${name} ${CMAKE_SOURCE_DIR}
        ${MIRL_BATCH_LINES} ${ARGN} OUTPUT_VARIABLE units OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    string(REPLACE "\n" ";" units "${units}")
    # A name that a file gets may stand in its neighbours: what changes is read again.
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${program} ${ARGN})
    set(${out} ${units} PARENT_SCOPE)
endfunction()
