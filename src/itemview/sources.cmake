target_sources(OrrinQuiver
    PRIVATE
        itemview/ItemContainer.cpp
        itemview/MousePointer.cpp
    PUBLIC FILE_SET HEADERS BASE_DIRS ${CMAKE_CURRENT_SOURCE_DIR} FILES
        itemview/ItemContainer.h
        itemview/MousePointer.h)
