# The simulated analyser on a pseudo-terminal: no Qt, no engine.
add_executable(qor-sim qor_sim.cpp)
target_link_libraries(qor-sim PRIVATE qor_all qor_sim)
target_compile_definitions(qor-sim PRIVATE QOR_VERSION="${PROJECT_VERSION}")
