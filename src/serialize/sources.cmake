# The serialization code is internal: the control reaches it, hosts use the
# control's XML properties.
target_sources(OrrinQuiverObjects
    PRIVATE
        serialize/XmlDocumentFormat.cpp
        serialize/XmlDocumentFormat.h
        serialize/XmlFormat.cpp
        serialize/XmlFormat.h
        serialize/XmlReader.cpp
        serialize/XmlReader.h
        serialize/XmlWriter.cpp
        serialize/XmlWriter.h
        serialize/modWebColorFuncs.cpp
        serialize/modWebColorFuncs.h)

# The format version is the library's own version.
set_source_files_properties(serialize/XmlFormat.cpp PROPERTIES COMPILE_DEFINITIONS
    "QUIVER_VERSION_MAJOR=${PROJECT_VERSION_MAJOR};QUIVER_VERSION_MINOR=${PROJECT_VERSION_MINOR};QUIVER_VERSION_PATCH=${PROJECT_VERSION_PATCH}")

# Property bags: where a host keeps a control's settings between sessions.
target_sources(OrrinQuiverObjects
    PRIVATE
        serialize/FormPropertyBag.cpp
        serialize/MemoryPropertyBag.cpp
        serialize/PropertyBag.cpp
        serialize/SettingsPropertyBag.cpp
        serialize/modPictureText.cpp
        serialize/modPictureText.h)
orrinquiver_public_headers(
    serialize/FormPropertyBag.h
    serialize/MemoryPropertyBag.h
    serialize/PropertyBag.h
    serialize/SettingsPropertyBag.h)
