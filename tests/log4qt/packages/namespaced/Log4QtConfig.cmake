# As the library's newer versions: with a namespace.
add_library(Log4Qt::log4qt INTERFACE IMPORTED)
target_include_directories(Log4Qt::log4qt INTERFACE ${CMAKE_CURRENT_LIST_DIR}/../../include)
target_link_libraries(Log4Qt::log4qt INTERFACE Qt6::Core)
