# The serialization code is internal: the control reaches it, hosts use the
# control's XML properties.
target_sources(OrrinQuiver
    PRIVATE
        serialize/modWebColorFuncs.cpp
        serialize/modWebColorFuncs.h)

# Property bags: where a host keeps a control's settings between sessions.
target_sources(OrrinQuiver
    PRIVATE
        serialize/FormPropertyBag.cpp
        serialize/MemoryPropertyBag.cpp
        serialize/PropertyBag.cpp
        serialize/SettingsPropertyBag.cpp
        serialize/modPictureText.cpp
        serialize/modPictureText.h
    PUBLIC FILE_SET HEADERS BASE_DIRS ${CMAKE_CURRENT_SOURCE_DIR} FILES
        serialize/FormPropertyBag.h
        serialize/MemoryPropertyBag.h
        serialize/PropertyBag.h
        serialize/SettingsPropertyBag.h)
