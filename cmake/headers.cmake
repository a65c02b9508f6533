# Header-only packages of the system, for the native and the cross build alike: their own folders
# are linked into the build tree, so that no other header of the system is ever seen.
find_path(QZ7_CLI11 CLI/CLI.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
find_path(QZ7_JSON nlohmann/json.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/headers)
file(CREATE_LINK ${QZ7_CLI11}/CLI ${CMAKE_BINARY_DIR}/headers/CLI SYMBOLIC)
file(CREATE_LINK ${QZ7_JSON}/nlohmann ${CMAKE_BINARY_DIR}/headers/nlohmann SYMBOLIC)
add_library(qz7_headers INTERFACE)
target_include_directories(qz7_headers SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/headers)
