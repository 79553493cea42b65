# SPDX-License-Identifier: MIT
# 64-bit ARM.
set(machine aarch64)
set(emulator qemu-aarch64-static)
include(${CMAKE_CURRENT_LIST_DIR}/debian_linux.cmake)
