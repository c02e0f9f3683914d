# Toolchain file: Debian's cross compiler for VRK_ARCHITECTURE (arm64, armhf or s390x, Debian's names), the sysroot that
# scripts/make-sysroot creates from Debian's packages, and qemu to run the programs.
#   VRK_SYSROOT   the sysroot; default: the one in this tree's build/sysroot

# try_compile configures separate projects with this file.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VRK_ARCHITECTURE VRK_SYSROOT)

set(triplet_arm64 aarch64-linux-gnu)
set(triplet_armhf arm-linux-gnueabihf)
set(triplet_s390x s390x-linux-gnu)
set(processor_arm64 aarch64)
set(processor_armhf arm)
set(processor_s390x s390x)
if(NOT DEFINED triplet_${VRK_ARCHITECTURE})
    message(FATAL_ERROR "VRK_ARCHITECTURE is arm64, armhf or s390x, not '${VRK_ARCHITECTURE}'")
endif()
set(triplet ${triplet_${VRK_ARCHITECTURE}})

if(NOT VRK_SYSROOT)
    set(VRK_SYSROOT ${CMAKE_CURRENT_LIST_DIR}/../../build/sysroot/${VRK_ARCHITECTURE})
endif()
get_filename_component(VRK_SYSROOT ${VRK_SYSROOT} ABSOLUTE)
set(VRK_SYSROOT ${VRK_SYSROOT} CACHE PATH "Root of the packages of the other architecture")
if(NOT EXISTS ${VRK_SYSROOT}/usr/lib/${triplet})
    message(FATAL_ERROR "${VRK_SYSROOT} is no sysroot of ${VRK_ARCHITECTURE}; make it with scripts/make-sysroot")
endif()

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR ${processor_${VRK_ARCHITECTURE}})
set(CMAKE_CXX_COMPILER ${triplet}-g++)
if(VRK_ARCHITECTURE STREQUAL "armhf")
    # Disables notes about an ABI change in GCC 7.
    set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)
endif()
set(CMAKE_SYSROOT ${VRK_SYSROOT})
set(CMAKE_LIBRARY_ARCHITECTURE ${triplet})
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-${CMAKE_SYSTEM_PROCESSOR} -L ${VRK_SYSROOT})

# Programs are found on this machine, everything else in the sysroot.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${VRK_SYSROOT})
set(ENV{PKG_CONFIG_LIBDIR} ${VRK_SYSROOT}/usr/lib/${triplet}/pkgconfig:${VRK_SYSROOT}/usr/share/pkgconfig)
