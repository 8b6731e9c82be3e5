# How the project's targets are compiled: each links koraxdr_options. Nothing is set for a project
# around this one.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_C_EXTENSIONS OFF)
if(PROJECT_IS_TOP_LEVEL)
  set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
  set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
  set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
  set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
endif()

add_library(koraxdr_options INTERFACE)
target_compile_options(koraxdr_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion)
if(KORAXDR_WERROR)
  target_compile_options(koraxdr_options INTERFACE -Werror)
endif()
if(KORAXDR_SANITIZE)
  set(sanitizers -fsanitize=address,undefined)
  target_compile_options(koraxdr_options INTERFACE
    ${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(koraxdr_options INTERFACE ${sanitizers})
elseif(KORAXDR_HARDEN AND NOT WIN32) # for Windows the library alone is hardened, see there
  target_compile_options(koraxdr_options INTERFACE -fstack-protector-strong)
  target_link_options(koraxdr_options INTERFACE -Wl,-z,relro,-z,now)
  # It checks nothing without optimisation, and a stronger level that a packager has set stays.
  if(NOT "${CMAKE_C_FLAGS} ${CMAKE_CXX_FLAGS}" MATCHES "_FORTIFY_SOURCE")
    target_compile_options(koraxdr_options INTERFACE
      $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE$<SEMICOLON>-D_FORTIFY_SOURCE=2>)
  endif()
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i.86)$")
    target_compile_options(koraxdr_options INTERFACE -fcf-protection)
  endif()
endif()
