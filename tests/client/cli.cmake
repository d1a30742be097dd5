# SPDX-License-Identifier: Apache-2.0
# The command line: its parts, and the real program in a process of its own.
zepa_test(client_cli_test LABEL unit
  SOURCES
    answer_token_test.cpp
    field_text_test.cpp
    output_test.cpp
    player_test.cpp
    script_test.cpp
    user_action_test.cpp
    watched_method_test.cpp
  LIBRARIES zepa_cli)

zepa_test(client_program_test LABEL unit
  SOURCES
    program.cpp
    program_files_test.cpp
    program_folder_test.cpp
    program_help_test.cpp
    program_methods_test.cpp
    program_play_test.cpp
    program_post_test.cpp
    program_rules_test.cpp
    program_settings_test.cpp
    program_streams_test.cpp
    program_terminal_test.cpp
  LIBRARIES Qt6::Core)
set_source_files_properties(program_rules_test.cpp program_terminal_test.cpp PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
target_compile_definitions(client_program_test PRIVATE ZEPA_PROGRAM="$<TARGET_FILE:zepa>")
add_dependencies(client_program_test zepa)

zepa_test(client_program_bus_test LABEL service
  SOURCES
    program.cpp
    program_service_test.cpp
    ${PROJECT_SOURCE_DIR}/tests/platform/fake_bus.cpp
    ${PROJECT_SOURCE_DIR}/tests/platform/service_fixture.cpp
    ${PROJECT_SOURCE_DIR}/tests/platform/test_bus.cpp
  LIBRARIES zepa_platform Qt6::DBus)
target_compile_definitions(client_program_bus_test PRIVATE
  BROKER_CONTROLLER="$<TARGET_FILE:broker_controller>"
  ZEPA_PROGRAM="$<TARGET_FILE:zepa>" SCRIPTED_SERVICE="$<TARGET_FILE:scripted_service>")
add_dependencies(client_program_bus_test broker_controller zepa scripted_service)
