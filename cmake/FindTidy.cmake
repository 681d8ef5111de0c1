# libtidy, as Tidy::tidy.
find_path(TIDY_INCLUDE_DIR tidy/tidy.h)
find_library(TIDY_LIBRARY tidy)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Tidy REQUIRED_VARS TIDY_LIBRARY TIDY_INCLUDE_DIR)
if(Tidy_FOUND AND NOT TARGET Tidy::tidy)
    add_library(Tidy::tidy UNKNOWN IMPORTED)
    set_target_properties(Tidy::tidy PROPERTIES IMPORTED_LOCATION ${TIDY_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES ${TIDY_INCLUDE_DIR})
endif()
