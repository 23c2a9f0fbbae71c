# The header strip: bars, geometry, the slide, bar and arrow painting and bar records.
target_sources(OrrinQuiverObjects
    PRIVATE
        control/BarRecord.cpp
        control/BarRecord.h
        control/DrawArrow.cpp
        control/DrawArrow.h
        control/DrawHeader.cpp
        control/DrawHeader.h
        control/HeaderBar.cpp
        control/HeaderBar.h
        control/HeaderFlash.cpp
        control/HeaderFlash.h
        control/HeaderGeometry.cpp
        control/HeaderGeometry.h
        control/HeaderSound.cpp
        control/HeaderSound.h
        control/HeaderStrip.cpp
        control/HeaderStrip.h)

# The built-in header click (made by scripts/make_folder_sound.py).
target_sources(OrrinQuiverObjects PRIVATE control/resources/sounds.qrc)

# The control in rooms: the widget and its public surface, what the rooms
# share, the property table, header selection, the item-view relay and its
# keyboard commands, the scroll arrows, sounds,
# persistence and the lifecycle events; the process-wide resources and the style presets.
target_sources(OrrinQuiverObjects
    PRIVATE
        control/HeaderSelection.cpp
        control/HeaderSelection.h
        control/ItemRelay.cpp
        control/ItemRelay.h
        control/KeyCommands.cpp
        control/KeyCommands.h
        control/PropertyTable.cpp
        control/PropertyTable.h
        control/Quiver.cpp
        control/QuiverLifecycle.cpp
        control/QuiverPersistence.cpp
        control/QuiverPersistence.h
        control/QuiverPrivate.cpp
        control/Quiver_p.h
        control/QuiverSounds.cpp
        control/QuiverSounds.h
        control/ScrollArrows.cpp
        control/ScrollArrows.h
        control/modQuiver.cpp
        control/modQuiver.h
        control/StylePreset.cpp)
orrinquiver_public_headers(
    control/Quiver.h
    control/StylePreset.h)
# Quiver::Version() reports the project's version.
set_source_files_properties(control/modQuiver.cpp PROPERTIES COMPILE_DEFINITIONS
    "ORRINQUIVER_VERSION_MAJOR=${PROJECT_VERSION_MAJOR};ORRINQUIVER_VERSION_MINOR=${PROJECT_VERSION_MINOR};ORRINQUIVER_VERSION_PATCH=${PROJECT_VERSION_PATCH}")
