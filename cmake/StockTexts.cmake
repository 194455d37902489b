# add_stock_texts(<target> <folder>): compiles the folder's stock_pt_PT.ts and puts it into the target as the resource
# ":/texts/stock_pt_PT.qm". `LoadStockTexts` registers it.
find_program(LRELEASE lrelease HINTS ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_BINS} REQUIRED)

function(add_stock_texts target folder)
    set(texts ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/stock_pt_PT.ts)
    set(build ${CMAKE_CURRENT_BINARY_DIR}/texts)
    configure_file(${folder}/stock.qrc ${build}/stock.qrc COPYONLY)
    add_custom_command(
        OUTPUT ${build}/stock.cpp
        COMMAND ${LRELEASE} -silent ${texts} -qm ${build}/stock_pt_PT.qm
        COMMAND Qt6::rcc --name stock --output ${build}/stock.cpp ${build}/stock.qrc
        DEPENDS ${texts} ${build}/stock.qrc
        COMMENT "Texts of the toolkit to a resource"
        VERBATIM)
    target_sources(${target} PRIVATE ${build}/stock.cpp)
endfunction()
