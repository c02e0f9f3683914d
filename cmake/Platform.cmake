# Checks the requirements for the compiler, its library and libcurl before anything is compiled, so that a missing one is
# reported with the reason.

set(vrk_checks ${CMAKE_CURRENT_BINARY_DIR}/checks)

# vrk_compiles(RESULT SOURCE): whether a source compiles. Only success is cached, because the cause of a failure may be
# fixed before the next run.
function(vrk_compiles result source)
    if(${result})
        return()
    endif()
    file(WRITE ${vrk_checks}/${result}.cpp "${source}\n")
    try_compile(VRK_COMPILES ${vrk_checks} ${vrk_checks}/${result}.cpp CXX_STANDARD 20 CXX_STANDARD_REQUIRED ON)
    if(VRK_COMPILES)
        set(${result} ON CACHE INTERNAL "Whether ${result}.cpp compiled")
    endif()
    unset(VRK_COMPILES CACHE)
endfunction()

function(vrk_refuse reason)
    message(FATAL_ERROR "VanticRestKit cannot be built with ${CMAKE_CXX_COMPILER} ${CMAKE_CXX_FLAGS}: ${reason}")
endfunction()

set(stop_token "#include <stop_token>
bool stops(const std::stop_token& token) { return token.stop_requested(); }")
set(from_chars "#include <charconv>
bool reads(const char* text, double& number) { return std::from_chars(text, text + 1, number).ptr != text; }")
set(long_time "#include <ctime>
static_assert(sizeof(std::time_t) >= 8);")
set(main "int main() {}")

vrk_compiles(VRK_PLATFORM_IS_COMPLETE "${stop_token}\n${from_chars}\n${long_time}\n${main}")
if(NOT VRK_PLATFORM_IS_COMPLETE)
    vrk_compiles(VRK_HAS_STOP_TOKEN "${stop_token}\n${main}")
    vrk_compiles(VRK_HAS_FROM_CHARS "${from_chars}\n${main}")
    if(NOT VRK_HAS_STOP_TOKEN OR NOT VRK_HAS_FROM_CHARS)
        vrk_refuse("its C++ library lacks std::stop_token or std::from_chars for double, as libc++ does before version 20. \
Use libstdc++ 12 or later.")
    endif()
    # On 32-bit systems the default time_t ends in 2038.
    vrk_compiles(VRK_HAS_LONG_TIME "#define _FILE_OFFSET_BITS 64\n#define _TIME_BITS 64\n${long_time}\n${main}")
    if(NOT VRK_HAS_LONG_TIME)
        vrk_refuse("its C library has no 64-bit time_t, so dates would end in 2038. Use glibc 2.34 or later.")
    endif()
    add_compile_definitions(_FILE_OFFSET_BITS=64 _TIME_BITS=64)
endif()

# Only a libcurl built with OpenSSL calls the callback with which the library configures the TLS context.
if(NOT DEFINED VRK_LIBCURL_TLS)
    file(WRITE ${vrk_checks}/libcurl.cpp
        "#include <curl/curl.h>
         #include <cstdio>
         int main() { std::puts(curl_version_info(CURLVERSION_NOW)->ssl_version); }")
    try_run(VRK_RAN VRK_COMPILES ${vrk_checks} ${vrk_checks}/libcurl.cpp
        LINK_LIBRARIES CURL::libcurl RUN_OUTPUT_VARIABLE tls COMPILE_OUTPUT_VARIABLE log)
    if(NOT VRK_COMPILES)
        message(FATAL_ERROR "VanticRestKit cannot be linked with ${CURL_LIBRARIES}: ${log}")
    endif()
    string(STRIP "${tls}" tls)
    if(NOT VRK_RAN STREQUAL "0")
        message(FATAL_ERROR "A program that asks libcurl for its TLS library does not run: ${VRK_RAN}. If it cannot run on "
            "this machine, say what the library is: -DVRK_LIBCURL_TLS=OpenSSL/3")
    endif()
    unset(VRK_RAN CACHE)
    unset(VRK_COMPILES CACHE)
    set(VRK_LIBCURL_TLS ${tls} CACHE STRING "The TLS library of libcurl, as libcurl names it")
    mark_as_advanced(VRK_LIBCURL_TLS)
endif()
if(NOT VRK_LIBCURL_TLS MATCHES "^OpenSSL/")
    set(found ${VRK_LIBCURL_TLS})
    unset(VRK_LIBCURL_TLS CACHE)
    message(FATAL_ERROR "VanticRestKit needs a libcurl built with OpenSSL (Debian: libcurl4-openssl-dev). This one has "
        "'${found}', which does not offer the TLS context that trust and client certificates are set in.")
endif()
