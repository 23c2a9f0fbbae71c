target_sources(OrrinQuiver
    PRIVATE
        platform/EdgeLines.cpp
        platform/EdgeLines.h
        platform/FitText.cpp
        platform/FitText.h
        platform/PreparedText.cpp
        platform/PreparedText.h
        platform/MouseCodes.cpp
        platform/MouseCodes.h
        platform/SlideMover.cpp
        platform/SlideMover.h
        platform/SystemColors.cpp
        platform/VariantNumbers.cpp
        platform/VariantNumbers.h
    PUBLIC FILE_SET HEADERS BASE_DIRS ${CMAKE_CURRENT_SOURCE_DIR} FILES
        platform/SoundOutput.h
        platform/SystemColors.h)

# The bridge that hands a raised error to the calling script; the model's
# XML members use it as well as the control.
target_sources(OrrinQuiver
    PRIVATE platform/ScriptErrors.cpp
    PUBLIC FILE_SET HEADERS BASE_DIRS ${CMAKE_CURRENT_SOURCE_DIR} FILES platform/ScriptErrors.h)
