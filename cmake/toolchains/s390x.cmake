# SPDX-License-Identifier: MIT
# IBM Z, 64 bits: the high byte of a word comes first.
set(machine s390x)
set(emulator qemu-s390x-static)
include(${CMAKE_CURRENT_LIST_DIR}/debian_linux.cmake)
