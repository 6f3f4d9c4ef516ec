# What runs on the machines of a fleet is Python, and is tested by its own means.
find_program(PYTHON3_PROGRAM python3)
if(PYTHON3_PROGRAM)
  add_test(NAME Fleet.PartsThatRunOnMachines
    COMMAND ${CMAKE_COMMAND} -E env PYTHONDONTWRITEBYTECODE=1
            ${PYTHON3_PROGRAM} -m unittest discover -p "test_*.py"
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}/workbench/deploy/fleet/ansible)
endif()
