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

TEST(CurrentError, WhateverWasThrownHasANumberAndWords) {
    EXPECT_EQ(Told(RuntimeError(kFileNotFound, "/x")), "53 Ficheiro não encontrado: /x");
    EXPECT_EQ(Told(std::bad_alloc()), "7 Memória insuficiente");
    EXPECT_EQ(Told(std::length_error("vector")), "7 Memória insuficiente");
    EXPECT_EQ(Told(std::runtime_error("no thread")), "51 Erro interno: no thread");
    EXPECT_EQ(Told(1), "51 Erro interno");
}

} // namespace
} // namespace pintalux
