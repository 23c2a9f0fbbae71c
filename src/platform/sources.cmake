target_sources(OrrinQuiver
    PRIVATE
        platform/FitText.cpp
        platform/FitText.h
        platform/SlideMover.cpp
        platform/SlideMover.h
        platform/SystemColors.cpp
    PUBLIC FILE_SET HEADERS BASE_DIRS ${CMAKE_CURRENT_SOURCE_DIR} FILES
        platform/SoundOutput.h
        platform/SystemColors.h)
