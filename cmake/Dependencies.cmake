# The libraries that the outputs need, found once; every one is a Debian package (Scripts/setup installs them).
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
find_package(ZLIB REQUIRED)
find_package(HDF5 REQUIRED COMPONENTS C)
pkg_check_modules(NETCDF REQUIRED IMPORTED_TARGET netcdf>=4.7)
pkg_check_modules(CJSON REQUIRED IMPORTED_TARGET libcjson>=1.7)
pkg_check_modules(DEFLATE REQUIRED IMPORTED_TARGET libdeflate>=1.8)
pkg_check_modules(MINIZIP REQUIRED IMPORTED_TARGET minizip)

# The LZMA encoder comes as C sources; they are built as a library of their own, single-threaded.
find_path(LZMA_SDK_INCLUDE lzma/LzmaEnc.c REQUIRED)
add_library(lzmasdk STATIC ${LZMA_SDK_INCLUDE}/lzma/LzmaEnc.c ${LZMA_SDK_INCLUDE}/lzma/LzFind.c)
target_compile_definitions(lzmasdk PUBLIC _7ZIP_ST)
target_compile_options(lzmasdk PRIVATE -w)
