# Style presets and the style page; the Designer plugin is a separate target
# (design/CMakeLists.txt).
target_sources(OrrinQuiver
    PRIVATE
        design/StylePage.cpp
        design/StylePreset.cpp
    PUBLIC FILE_SET HEADERS BASE_DIRS ${CMAKE_CURRENT_SOURCE_DIR} FILES
        design/StylePage.h
        design/StylePreset.h)
