# The style page; the Designer plugin that shows it is a separate target
# (design/CMakeLists.txt).
target_sources(OrrinQuiverObjects PRIVATE design/StylePage.cpp)
orrinquiver_public_headers(design/StylePage.h)
