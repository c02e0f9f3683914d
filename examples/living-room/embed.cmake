# Writes OUTPUT, a source with the texts of FILES as arrays of bytes: those of one ending in one array, named after it.
set(endings css js svg html)
set(source "#include \"Assets.h\"\n\nnamespace living_room::assets {\n\n")
foreach(ending IN LISTS endings)
    set(bytes "")
    foreach(file IN LISTS FILES)
        if(file MATCHES "\\.${ending}$")
            file(READ ${file} hex HEX)
            string(APPEND bytes ${hex})
        endif()
    endforeach()
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${bytes}")
    string(APPEND source "constexpr char ${ending}Bytes[] = {${bytes}};\n")
endforeach()
string(APPEND source "
const std::string_view css(cssBytes, sizeof cssBytes);
const std::string_view js(jsBytes, sizeof jsBytes);
const std::string_view svg(svgBytes, sizeof svgBytes);
const std::string_view templates(htmlBytes, sizeof htmlBytes);

}  // namespace living_room::assets\n")
file(WRITE ${OUTPUT} "${source}")
