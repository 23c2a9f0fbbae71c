# The bridge to the desktop: system colours, pointers, sound output, text
# fitting, line drawing, the slide mover and the pace of its frames.
target_sources(OrrinQuiverObjects
    PRIVATE
        platform/EdgeLines.cpp
        platform/EdgeLines.h
        platform/FitText.cpp
        platform/FitText.h
        platform/FrameInterval.cpp
        platform/FrameInterval.h
        platform/MouseCodes.cpp
        platform/MouseCodes.h
        platform/MousePointer.cpp
        platform/PreparedText.cpp
        platform/PreparedText.h
        platform/SlideMover.cpp
        platform/SlideMover.h
        platform/SoundOutput.h
        platform/SystemColors.cpp)
orrinquiver_public_headers(
    platform/MousePointer.h
    platform/SystemColors.h)
