# Programs that speak to LibreOffice through its programming interface, UNO.

# The office's own kit makes the C++ headers of the interface from what it says of its types.
find_program(TELA_CPPUMAKER cppumaker HINTS /usr/lib/libreoffice/sdk/bin REQUIRED
             DOC "Of the packages libreoffice-dev and libreoffice-dev-common; else TELA_OFFICE=OFF")
cmake_path(GET TELA_CPPUMAKER PARENT_PATH office_kit)
cmake_path(GET office_kit PARENT_PATH office_kit)
cmake_path(GET office_kit PARENT_PATH office_folder)
set(office_folder "${office_folder}/program")
set(office_types "${office_folder}/types.rdb" "${office_folder}/types/offapi.rdb")
set(office_headers "${CMAKE_BINARY_DIR}/office_headers")
add_custom_command(
  OUTPUT "${office_headers}.made"
  COMMAND "${TELA_CPPUMAKER}" -Gc "-O${office_headers}" ${office_types}
  COMMAND "${CMAKE_COMMAND}" -E touch "${office_headers}.made"
  DEPENDS ${office_types}
  COMMENT "Making the headers of LibreOffice's interface" VERBATIM)
add_custom_target(tela_office_headers DEPENDS "${office_headers}.made")

# The office's objects come without the type information that this check reads. Linked last, so that
# it stands behind the option that turns all checks on.
add_library(tela_office_objects INTERFACE)
if(TELA_SANITIZE)
  target_compile_options(tela_office_objects INTERFACE -fno-sanitize=vptr)
endif()

# tela_office_program(NAME [libraries...]): an executable of this folder's *.cpp files. Whoever starts
# it says where the office's libraries are.
function(tela_office_program name)
  tela_program(${name} ${ARGN})
  add_dependencies(${name} tela_office_headers)
  target_include_directories(${name} SYSTEM PRIVATE "${office_headers}" "${office_kit}/include")
  target_compile_definitions(${name} PRIVATE LINUX UNX GCC CPPU_ENV=gcc3)
  target_link_directories(${name} PRIVATE "${office_kit}/lib")
  target_link_libraries(${name} PRIVATE uno_cppuhelpergcc3 uno_cppu uno_sal)
  target_link_options(${name} PRIVATE "-Wl,-rpath-link,${office_folder}")
  target_link_libraries(${name} PRIVATE tela_office_objects)
endfunction()
