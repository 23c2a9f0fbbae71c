# Filled in as the control code lands.

# The header strip: bars, geometry, the slide, bar painting and bar records.
target_sources(OrrinQuiver
    PRIVATE
        control/BarRecord.cpp
        control/BarRecord.h
        control/DrawHeader.cpp
        control/DrawHeader.h
        control/HeaderBar.cpp
        control/HeaderBar.h
        control/HeaderGeometry.cpp
        control/HeaderGeometry.h
        control/HeaderSound.cpp
        control/HeaderSound.h
        control/HeaderStrip.cpp
        control/HeaderStrip.h)

# The built-in header click (made by scripts/make_folder_sound.py).
target_sources(OrrinQuiver PRIVATE control/resources/sounds.qrc)

# The control itself: its property set, lifecycle and the process-wide resources.
target_sources(OrrinQuiver
    PRIVATE
        control/Quiver.cpp
        control/Quiver_p.h
        control/modQuiver.cpp
        control/modQuiver.h
    PUBLIC FILE_SET HEADERS BASE_DIRS ${CMAKE_CURRENT_SOURCE_DIR} FILES control/Quiver.h)
# Quiver::Version() reports the project's version.
set_source_files_properties(control/modQuiver.cpp PROPERTIES COMPILE_DEFINITIONS
    "ORRINQUIVER_VERSION_MAJOR=${PROJECT_VERSION_MAJOR};ORRINQUIVER_VERSION_MINOR=${PROJECT_VERSION_MINOR};ORRINQUIVER_VERSION_PATCH=${PROJECT_VERSION_PATCH}")

# Saving to and restoring from property bags; showing, resizing and focus.
target_sources(OrrinQuiver
    PRIVATE
        control/QuiverLifecycle.cpp
        control/QuiverPersistence.cpp)
