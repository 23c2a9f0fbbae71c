# The serialization code is internal: the control reaches it, hosts use the
# control's XML properties.
target_sources(OrrinQuiver
    PRIVATE
        serialize/modWebColorFuncs.cpp
        serialize/modWebColorFuncs.h)
