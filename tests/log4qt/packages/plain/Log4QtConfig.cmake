# As the library's older versions: no namespace.
add_library(log4qt INTERFACE IMPORTED)
target_include_directories(log4qt INTERFACE ${CMAKE_CURRENT_LIST_DIR}/../../include)
target_link_libraries(log4qt INTERFACE Qt6::Core)
