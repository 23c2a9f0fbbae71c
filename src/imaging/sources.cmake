target_sources(OrrinQuiver
    PRIVATE
        imaging/clsDrawPictures.cpp
        imaging/clsImageList.cpp
        imaging/ImageList.cpp
        imaging/PictureOps.cpp
        imaging/PictureOps_p.h
    PUBLIC FILE_SET HEADERS BASE_DIRS ${CMAKE_CURRENT_SOURCE_DIR} FILES
        imaging/clsDrawPictures.h
        imaging/clsImageList.h
        imaging/ImageList.h)
