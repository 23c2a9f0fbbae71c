# The fuzz targets: fuzz/<name>.cpp, seeds in fuzz/corpus/<name>, the inputs
# of crashes found and fixed in fuzz/regressions/<name>.
set(QUIVER_FUZZ_TARGETS colortext xmldocument headerfragment propertybag imagelist)
