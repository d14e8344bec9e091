# What every target is compiled with.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

# Paths relative to the tree, so that a second clone finds what the first one compiled.
find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
                                    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
endif()

# Most of a build is reading the headers of the libraries; the compiler reads them once for a target. Other compilers and
# the checks see the sources without them, so that every file still includes what it uses.
function(read_once Target)
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        target_precompile_headers(${Target} PRIVATE ${ARGN})
        target_compile_options(${Target} PRIVATE -fpch-preprocess)
    endif()
endfunction()
set(STANDARD_HEADERS <algorithm> <array> <cmath> <cstdint> <filesystem> <functional> <memory> <optional> <span> <string>
                     <utility> <variant> <vector>)
set(WINDOW_HEADERS ${STANDARD_HEADERS} <QAbstractItemModel> <QApplication> <QBoxLayout> <QButtonGroup> <QCloseEvent>
                   <QComboBox> <QGridLayout> <QLabel> <QLineEdit> <QMainWindow> <QMdiArea> <QMdiSubWindow> <QMenuBar> <QMessageBox>
                   <QPainter> <QPushButton> <QRadioButton> <QScreen> <QSettings> <QStatusBar> <QTableView> <QTimer> <QToolBar>)

# The release compiler's warnings are errors; clang, which builds the fuzz targets, only warns.
add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wnon-virtual-dtor
                    -Woverloaded-virtual -Wcast-align -Wimplicit-fallthrough
                    "$<$<CXX_COMPILER_ID:GNU>:-Wdouble-promotion;-Werror>")

# g++ 12 takes "text" + std::string for overlapping copies (its bug 105651), and in an optimised build with precompiled
# headers for copies of impossible sizes.
add_compile_options("$<$<CXX_COMPILER_ID:GNU>:-Wno-restrict;-Wno-stringop-overflow;-Wno-array-bounds>")

# The figures must be the same on every machine: no fused operations that round once where the formula rounds twice.
add_compile_options(-ffp-contract=off)

# Memory errors, undefined behaviour, floats outside an integer's range and wrong use of the standard containers.
option(SKARVELIN_SANITIZE "Stop at memory errors and undefined behaviour" OFF)
option(SKARVELIN_FUZZ "Build the fuzz targets (clang only)" OFF)
if(SKARVELIN_SANITIZE OR SKARVELIN_FUZZ)
    set(SANITIZERS address,undefined,float-cast-overflow)
    add_compile_options(-fsanitize=${SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
    add_link_options(-fsanitize=${SANITIZERS})
endif()
if(SKARVELIN_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
