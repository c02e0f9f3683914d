# Writes a C++ source with the bytes of files.   cmake -DOUTPUT=FILE -DINPUTS=FILE;FILE;... -P embed.cmake
set(arrays "")
set(rows "")
set(number 0)
foreach(input IN LISTS INPUTS)
    file(READ ${input} bytes HEX)
    string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
    # Lines of a length that compilers and people can take.
    string(REGEX REPLACE "((0x..,)(0x..,)(0x..,)(0x..,)(0x..,)(0x..,)(0x..,)(0x..,))" "\\1\n" bytes "${bytes}")
    get_filename_component(name ${input} NAME)
    string(APPEND arrays "const unsigned char file${number}[] = {\n${bytes}};\n")
    string(APPEND rows
        "        {\"${name}\", {reinterpret_cast<const char*>(file${number}), sizeof file${number}}},\n")
    math(EXPR number "${number} + 1")
endforeach()
file(WRITE ${OUTPUT} "#include \"streams/Streams.h\"

namespace VanticRestKit::sample {

namespace {

${arrays}
}  // namespace

const std::vector<EmbeddedFile>& embeddedFiles() {
    static const std::vector<EmbeddedFile> files{
${rows}    };
    return files;
}

}  // namespace VanticRestKit::sample
")
