# SPDX-License-Identifier: Apache-2.0
# The bodies that the reference client brings for host/.
zepa_test(client_services_test LABEL unit
  SOURCES
    field_test.cpp
    records_test.cpp
    settings_test.cpp
    themes_test.cpp
    tray_icon_test.cpp
  LIBRARIES zepa_client)

zepa_test(client_xml_test LABEL unit
  SOURCES
    field_xml_test.cpp
    xml_hostile_test.cpp
    xml_node_test.cpp
    xml_round_trip_test.cpp
  LIBRARIES zepa_client)

# Their short names for the same things would meet.
set_source_files_properties(settings_test.cpp xml_node_test.cpp PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
