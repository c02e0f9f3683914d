# Writes OUTPUT, the source of the function `asset`, with the bytes of FILES: each file by its name, templates as one.
set(bytesOfTemplates "")
set(arrays "")
set(rows "")
macro(add name bytes)
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," characters "${bytes}")
    string(REGEX REPLACE "[^a-z]" "_" array "bytes_of_${name}")
    string(APPEND arrays "constexpr char ${array}[] = {${characters}};\n")
    string(APPEND rows "    if (name == \"${name}\") return {${array}, sizeof ${array}};\n")
endmacro()
foreach(file IN LISTS FILES)
    get_filename_component(name ${file} NAME)
    file(READ ${file} bytes HEX)
    if(name MATCHES "\\.html$")
        string(APPEND bytesOfTemplates ${bytes})
    else()
        add(${name} ${bytes})
    endif()
endforeach()
add(templates ${bytesOfTemplates})
file(WRITE ${OUTPUT} "#include \"Template.h\"

namespace {
${arrays}}  // namespace

std::string_view living_room::asset(std::string_view name) {
${rows}    return {};
}
")
