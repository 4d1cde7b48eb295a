# Addresses, keys and ids that whoever deploys Tavimo owns. None has a real value here.
set(TAVIMO_ANNOUNCEMENT_HOST "" CACHE STRING "Host of the announcement server; empty: no fetch")
set(TAVIMO_SUPPORT_MAIL "support@example.org" CACHE STRING "Address that feedback mails go to")
set(TAVIMO_RELEASES_URL "https://example.org/tavimo/releases" CACHE STRING "Page of releases")
set(TAVIMO_RATING_URL "https://example.org/tavimo/rate" CACHE STRING "Page on which a user rates the program")
set(TAVIMO_KEEN_PROJECT_ID "000000000000000000000000" CACHE STRING "Project id of the usage service")
set(TAVIMO_KEEN_WRITE_KEY "" CACHE STRING "Write key of the usage service")
set(TAVIMO_KEEN_READ_KEY "" CACHE STRING "Read key of the usage service")
configure_file(${CMAKE_SOURCE_DIR}/cmake/DeployerValues.h.in ${CMAKE_BINARY_DIR}/generated/DeployerValues.h @ONLY)
