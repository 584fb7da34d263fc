# KVDRAW_VERSION from include/KVVersion.h, the one place where it stands.

file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/../include/KVVersion.h KVDRAW_VERSION
  REGEX "^#define KVDRAW_VERSION_(MAJOR|MINOR|PATCH) [0-9]+$")
list(TRANSFORM KVDRAW_VERSION REPLACE "^.* " "")
list(JOIN KVDRAW_VERSION "." KVDRAW_VERSION)
