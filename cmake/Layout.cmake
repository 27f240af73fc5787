# The build tree has the same shape as the installed tree, so that the program finds its module and its
# data by the same relative paths in both:
#   bin/krt550tool   lib/libtolvbo32.so ...   lib/krt550/KRT550Wizard.so   lib/krt550/parts/...   share/krt550/...
set(KRT550_MODULE_DIR ${CMAKE_INSTALL_LIBDIR}/krt550)
set(KRT550_PARTS_DIR ${KRT550_MODULE_DIR}/parts)
set(KRT550_DATA_DIR ${CMAKE_INSTALL_DATADIR}/krt550)
set(KRT550_WIZARD_DIR ${KRT550_DATA_DIR}/wizard)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_BINDIR})
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR})

set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
