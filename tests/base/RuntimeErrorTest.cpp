#include "base/RuntimeError.h"

#include <gtest/gtest.h>
#include <new>
#include <stdexcept>

namespace pintalux {
namespace {

/// What the message box says about something that was thrown.
template <class Thrown>
std::string Told(const Thrown& thrown) {
    try {
        throw thrown;
    } catch (...) {
        const RuntimeError error = CurrentError();
        EXPECT_STREQ(error.what(), error.Text().c_str());
        return std::to_string(error.Number()) + ' ' + error.Text();
    }
}

// The number and its words are what a user reads out when something went wrong.
TEST(RuntimeError, EveryNumberHasItsWords) {
    const std::pair<int, const char*> table[] = {{5, "Argumento ou chamada inválida"},
                                                 {6, "Excesso de capacidade (overflow)"},
                                                 {7, "Memória insuficiente"},
                                                 {9, "Índice fora do intervalo"},
                                                 {18, "Interrompido pelo utilizador"},
                                                 {51, "Erro interno"},
                                                 {53, "Ficheiro não encontrado"},
                                                 {57, "Erro de leitura ou escrita no dispositivo"},
                                                 {61, "Disco cheio"},
                                                 {68, "Dispositivo não disponível"},
                                                 {70, "Permissão recusada"},
                                                 {75, "Erro de acesso ao caminho ou ao ficheiro"},
                                                 {76, "Caminho não encontrado"},
                                                 {91, "Nenhum objecto activo"},
                                                 {380, "Valor de propriedade inválido"},
                                                 {481, "Imagem inválida"},
                                                 {999, "Erro da aplicação"}};
    for (const auto& [number, words] : table) {
        EXPECT_EQ(RuntimeError(number).Text(), words) << number;
        EXPECT_EQ(RuntimeError(number, "a.bmp").Text(), std::string(words) + ": a.bmp") << number;
    }
}

TEST(CurrentError, WhateverWasThrownHasANumberAndWords) {
    EXPECT_EQ(Told(RuntimeError(kFileNotFound, "/x")), "53 Ficheiro não encontrado: /x");
    EXPECT_EQ(Told(std::bad_alloc()), "7 Memória insuficiente");
    EXPECT_EQ(Told(std::length_error("vector")), "7 Memória insuficiente");
    EXPECT_EQ(Told(std::runtime_error("no thread")), "51 Erro interno: no thread");
    EXPECT_EQ(Told(1), "51 Erro interno");
}

} // namespace
} // namespace pintalux
