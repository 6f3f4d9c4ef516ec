# Tests that run the program as a user would.
find_package(nlohmann_json REQUIRED)

deployment_tests(integration_tests
  FOLDERS integration support/ssh
  LIBRARIES nlohmann_json::nlohmann_json
  DEFINITIONS DEPLOYMGR_PROGRAM="$<TARGET_FILE:deploymgr>" SOURCE_TREE="${PROJECT_SOURCE_DIR}")
add_dependencies(integration_tests deploymgr deployment_module lying_server)
