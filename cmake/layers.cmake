# What a layer may include.
#
# Each layer has an include directory of its own that holds links to the headers of the folders it may see, and
# nothing else: an include of something above it is a file that is not there.

# qor_layer(NAME FOLDER...): the include directory of layer NAME, an interface library qor_see_NAME.
function(qor_layer name)
  set(root ${CMAKE_BINARY_DIR}/include/${name})
  file(REMOVE_RECURSE ${root})
  foreach(folder IN LISTS ARGN)
    file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/src/${folder}/*.h)
    foreach(header IN LISTS headers)
      cmake_path(GET header PARENT_PATH parent)
      file(MAKE_DIRECTORY ${root}/${parent})
      file(CREATE_LINK ${CMAKE_SOURCE_DIR}/src/${header} ${root}/${header} SYMBOLIC)
    endforeach()
  endforeach()
  add_library(qor_see_${name} INTERFACE)
  target_include_directories(qor_see_${name} INTERFACE ${root})
  target_link_libraries(qor_see_${name} INTERFACE qor_options)
endfunction()
