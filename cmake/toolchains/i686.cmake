# SPDX-License-Identifier: MIT
# 32-bit x86: words of 32 bits, no 128-bit integer, doubles in registers of 80 bits.
set(machine i686)
set(emulator qemu-i386-static)
include(${CMAKE_CURRENT_LIST_DIR}/debian_linux.cmake)
