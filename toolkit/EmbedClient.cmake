# cmake -DOUT=FILE.cpp -DFOLDER=toolkit/client -DGZIP=/bin/gzip -P EmbedClient.cmake
# Writes a source file that holds the browser side's files, compressed and without comments (a fifth of the bytes of a
# first load), and a hash over all of them.
file(GLOB files ${FOLDER}/*.js ${FOLDER}/*.css)
list(SORT files)
set(arrays)
set(rows)
set(hashes)
set(index 0)
foreach(file IN LISTS files)
    get_filename_component(name ${file} NAME)
    set(plain ${OUT}.${index})
    execute_process(COMMAND awk -f ${CMAKE_CURRENT_LIST_DIR}/blank-comments.awk ${file} OUTPUT_FILE ${plain}
        COMMAND_ERROR_IS_FATAL ANY)
    file(SIZE ${plain} size)
    file(SHA256 ${plain} hash)
    string(APPEND hashes "${name}:${hash};")
    set(packed ${OUT}.${index}.gz)
    execute_process(COMMAND ${GZIP} -9nc ${plain} OUTPUT_FILE ${packed} COMMAND_ERROR_IS_FATAL ANY)
    file(SIZE ${packed} packedSize)
    file(READ ${packed} bytes HEX)
    file(REMOVE ${plain} ${packed})
    string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
    string(REGEX REPLACE "((0x..,){24})" "\\1\n" bytes "${bytes}")
    string(APPEND arrays "constexpr unsigned char kFile${index}[] = {\n${bytes}};\n\n")
    string(APPEND rows "    {\"${name}\", kFile${index}, ${packedSize}, ${size}},\n")
    math(EXPR index "${index} + 1")
endforeach()
string(SHA256 all "${hashes}")
string(SUBSTRING ${all} 0 16 all)
file(CONFIGURE OUTPUT ${OUT} CONTENT [[
// Made by EmbedClient.cmake from toolkit/client.
#include "server/ClientFiles.h"

namespace Wt::Impl {

namespace {

@arrays@constexpr ClientFile kFiles[] = {
@rows@};

} // namespace

std::span<const ClientFile> clientFiles()
{
    return kFiles;
}

std::string_view clientHash()
{
    return "@all@";
}

} // namespace Wt::Impl
]] @ONLY)
