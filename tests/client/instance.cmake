# SPDX-License-Identifier: Apache-2.0
# One client a settings folder: real programs on a private bus.
zepa_test(client_caller_test LABEL unit
  SOURCES caller_lookups_test.cpp caller_policy_test.cpp quota_test.cpp
  LIBRARIES zepa_instance)

zepa_test(client_instance_test LABEL service
  SOURCES
    instance_calls_test.cpp
    instance_fixture.cpp
    instance_forged_owner_test.cpp
    instance_handed_over_test.cpp
    instance_late_bus_test.cpp
    instance_peer_test.cpp
    instance_sandbox_test.cpp
    instance_start_test.cpp
    program.cpp
    ${PROJECT_SOURCE_DIR}/tests/platform/bus_daemon.cpp
    ${PROJECT_SOURCE_DIR}/tests/platform/fake_bus.cpp
    ${PROJECT_SOURCE_DIR}/tests/platform/scripted_bus.cpp
    ${PROJECT_SOURCE_DIR}/tests/platform/service_fixture.cpp
    ${PROJECT_SOURCE_DIR}/tests/platform/test_bus.cpp
  LIBRARIES zepa_instance zepa_platform Qt6::DBus PkgConfig::SDBUS)
target_compile_definitions(client_instance_test PRIVATE
  BROKER_CONTROLLER="$<TARGET_FILE:broker_controller>"
  ZEPA_PROGRAM="$<TARGET_FILE:zepa>" SCRIPTED_SERVICE="$<TARGET_FILE:scripted_service>"
  ZEPA_INTERFACE="${PROJECT_SOURCE_DIR}/client/instance/zepa.Client1.xml")
add_dependencies(client_instance_test broker_controller zepa scripted_service)
