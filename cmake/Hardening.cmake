# What makes a fault in the programs harder to exploit, for compiler and linker; a test reads from the
# binaries what can be seen there. Builds for daily work and with sanitizers do without.
set(TOPICSMITH_HARDENED OFF)
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT TOPICSMITH_SANITIZE AND NOT MSVC)
  set(TOPICSMITH_HARDENED ON)
endif()
if(NOT TOPICSMITH_HARDENED)
  return()
endif()

set(CMAKE_POSITION_INDEPENDENT_CODE ON)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
# Some compilers define the last one themselves.
add_compile_options(-fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
if(UNIX)
  # Tables that a fault could write to are filled at the start, and closed.
  add_link_options(-Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
elseif(MINGW)
  # What the guards call is a library here, which this option names.
  add_link_options(-fstack-protector-strong -Wl,--dynamicbase -Wl,--high-entropy-va -Wl,--nxcompat)
endif()
