target_sources(OrrinQuiver
    PRIVATE
        model/QuiverError.cpp
    PUBLIC FILE_SET HEADERS BASE_DIRS ${CMAKE_CURRENT_SOURCE_DIR} FILES
        model/ControlLink.h
        model/ItemViewLink.h
        model/OleColor.h
        model/QuiverEnums.h
        model/QuiverError.h)
