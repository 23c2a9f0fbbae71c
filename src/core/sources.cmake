# The ground floor: colour values, the enumerations, the error type and its
# bridge to scripts, and variant helpers; every other folder may include it.
target_sources(OrrinQuiverObjects
    PRIVATE
        core/QuiverError.cpp
        core/ScriptErrors.cpp
        core/ScriptErrors.h
        core/VariantNumbers.cpp
        core/VariantNumbers.h)
orrinquiver_public_headers(
    core/OleColor.h
    core/OrrinQuiverExport.h
    core/QuiverEnums.h
    core/QuiverError.h)
