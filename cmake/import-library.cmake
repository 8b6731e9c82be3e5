# cmake -DNM= -DDLLTOOL= -DMACHINE= -DDEFINITION= -DOBJECTS= -DLIBRARIES= -P import-library.cmake
# Makes the import libraries of the DLL. It shows plain names in every build, but in a 32-bit program
# a caller's object asks for _Name@12: the import libraries have to know the bytes of the arguments,
# and the objects tell them. For 64 bits there are none, and the names stay as they are.
execute_process(COMMAND ${NM} --defined-only --extern-only ${OBJECTS}
  OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
file(STRINGS ${DEFINITION} lines)
foreach(line IN LISTS lines)
  string(STRIP "${line}" name)
  if(symbols MATCHES " _${name}@([0-9]+)\n")
    string(APPEND line "@${CMAKE_MATCH_1}")
  endif()
  string(APPEND definition "${line}\n")
endforeach()
list(GET LIBRARIES 0 first)
file(WRITE ${first}.def "${definition}")
foreach(library IN LISTS LIBRARIES)
  execute_process(COMMAND ${DLLTOOL} --machine ${MACHINE} --kill-at --deterministic-libraries
    --dllname koraxdr.dll --input-def ${first}.def --output-lib ${library}
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
file(REMOVE ${first}.def)
