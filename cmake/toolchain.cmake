# What every target of the project is compiled with.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

find_program(QOR_CCACHE ccache)
if(QOR_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${QOR_CCACHE})
endif()

add_library(qor_options INTERFACE)
target_compile_options(qor_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # False alarms of g++ 12 about std::string and std::vector at -O2 and up.
  target_compile_options(qor_options INTERFACE -Wno-restrict -Wno-stringop-overflow -Wno-stringop-overread -Wno-array-bounds)
endif()
if(QOR_WERROR)
  target_compile_options(qor_options INTERFACE -Werror)
endif()
# Levels and grids are 32-bit float arithmetic in a fixed order: no contraction, no fast-math.
target_compile_options(qor_options INTERFACE -ffp-contract=off)
# Programs, tests and benchmarks see everything; a layer sees what cmake/layers.cmake gives it.
add_library(qor_all INTERFACE)
target_include_directories(qor_all INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_link_libraries(qor_all INTERFACE qor_options)
if(QOR_SANITIZE)
  target_compile_options(qor_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(qor_options INTERFACE -fsanitize=address,undefined)
  # A false alarm of g++ 12 about captures in code that the sanitizers have filled in.
  target_compile_options(qor_options INTERFACE -Wno-maybe-uninitialized)
endif()
if(QOR_FUZZ)
  target_compile_options(qor_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  target_link_options(qor_options INTERFACE -fsanitize=address,undefined)
endif()
