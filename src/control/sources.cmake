# The header strip: bars, geometry, the slide, bar painting and bar records.
target_sources(OrrinQuiverObjects
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
target_sources(OrrinQuiverObjects PRIVATE control/resources/sounds.qrc)

# The control itself: its property set, lifecycle, the process-wide
# resources and the style presets.
target_sources(OrrinQuiverObjects
    PRIVATE
        control/Quiver.cpp
        control/Quiver_p.h
        control/modQuiver.cpp
        control/modQuiver.h
        control/StylePreset.cpp)
orrinquiver_public_headers(
    control/Quiver.h
    control/StylePreset.h)
# Quiver::Version() reports the project's version.
set_source_files_properties(control/modQuiver.cpp PROPERTIES COMPILE_DEFINITIONS
    "ORRINQUIVER_VERSION_MAJOR=${PROJECT_VERSION_MAJOR};ORRINQUIVER_VERSION_MINOR=${PROJECT_VERSION_MINOR};ORRINQUIVER_VERSION_PATCH=${PROJECT_VERSION_PATCH}")

# Saving to and restoring from property bags; showing, resizing and focus.
target_sources(OrrinQuiverObjects
    PRIVATE
        control/QuiverLifecycle.cpp
        control/QuiverPersistence.cpp)
