# Writes OUTPUT, a source with the texts of FILES, each as an array of bytes named after the ending of its file.
set(source "#include \"Assets.h\"\n\nnamespace living_room::assets {\n\n")
foreach(file IN LISTS FILES)
    get_filename_component(name ${file} LAST_EXT)
    string(SUBSTRING ${name} 1 -1 name)
    file(READ ${file} bytes HEX)
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${bytes}")
    string(APPEND source "constexpr char ${name}Bytes[] = {${bytes}};\n"
        "const std::string_view ${name}(${name}Bytes, sizeof ${name}Bytes);\n\n")
endforeach()
file(WRITE ${OUTPUT} "${source}}  // namespace living_room::assets\n")
