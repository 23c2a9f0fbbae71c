target_sources(OrrinQuiver
    PRIVATE
        itemview/DrawItem.cpp
        itemview/DrawItem.h
        itemview/ItemContainer.cpp
        itemview/ItemContainer.h
        itemview/ItemContainer_p.h
        itemview/ItemContainerInput.cpp
        itemview/ItemLayout.cpp
        itemview/ItemLayout.h
        itemview/ItemLook.h
        itemview/MousePointer.cpp
    PUBLIC FILE_SET HEADERS BASE_DIRS ${CMAKE_CURRENT_SOURCE_DIR} FILES
        itemview/MousePointer.h)
