#include "base/Arithmetic.h"

#include "base/NumberText.h"
#include "base/RuntimeError.h"
#include "support/Errors.h"
#include "surface/raster/Colour.h"

#include <gtest/gtest.h>

#include <clocale>
#include <limits>

namespace pintalux {

namespace {

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

} // namespace

TEST(Arithmetic, HalvesRoundToTheEvenNumberOnBothSidesOfZero) {
    EXPECT_EQ(ToInt16(0.5), 0);
    EXPECT_EQ(ToInt16(1.5), 2);
    EXPECT_EQ(ToInt16(2.5), 2);
    EXPECT_EQ(ToInt16(-0.5), 0);
    EXPECT_EQ(ToInt16(-1.5), -2);
    EXPECT_EQ(ToInt16(-2.5), -2);
    EXPECT_EQ(ToInt32(2.5000001), 3);
    EXPECT_EQ(ToInt32(-2.4999999), -2);
    EXPECT_EQ(RoundHalfEven(3.5), 4.0);
}

TEST(Arithmetic, SixteenBitsEndAtTheirBounds) {
    EXPECT_EQ(ToInt16(32767.49), 32767);
    EXPECT_EQ(ToInt16(-32768.5), -32768);
    EXPECT_EQ(ErrorOf([] { ToInt16(32767.5); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { ToInt16(-32768.51); }), kOverflow);
}

TEST(Arithmetic, ThirtyTwoBitsEndAtTheirBounds) {
    EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
    EXPECT_EQ(ToInt32(-2147483648.5), -2147483647 - 1);
    EXPECT_EQ(ErrorOf([] { ToInt32(2147483647.5); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { ToInt32(-2147483649.0); }), kOverflow);
}

TEST(Arithmetic, WhatIsNoNumberOverflows) {
    EXPECT_EQ(ErrorOf([] { ToInt16(kNotANumber); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { ToInt32(kNotANumber); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { ToInt32(kInfinity); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { FloorToInt32(-kInfinity); }), kOverflow);
}

TEST(Arithmetic, FloorGoesDownBelowZero) {
    EXPECT_EQ(FloorToInt32(1.99), 1);
    EXPECT_EQ(FloorToInt32(-0.01), -1);
    EXPECT_EQ(FloorToInt16(-32768.0), -32768);
    EXPECT_EQ(ErrorOf([] { FloorToInt16(-32768.1); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { FloorToInt16(32768.0); }), kOverflow);
}

TEST(Arithmetic, SixteenBitOperationsRefuseToOverflow) {
    EXPECT_EQ(AddInt16(32766, 1), 32767);
    EXPECT_EQ(ErrorOf([] { AddInt16(32767, 1); }), kOverflow);
    EXPECT_EQ(SubtractInt16(-32767, 1), -32768);
    EXPECT_EQ(ErrorOf([] { SubtractInt16(-32768, 1); }), kOverflow);
    EXPECT_EQ(MultiplyInt16(181, 181), 32761);
    EXPECT_EQ(ErrorOf([] { MultiplyInt16(182, 182); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { MultiplyInt16(2147483647, 2147483647); }), kOverflow);
}

TEST(NumberText, FormattedNumberLeavesRoomForTheSign) {
    EXPECT_EQ(FormattedNumber(0), " 0");
    EXPECT_EQ(FormattedNumber(192), " 192");
    EXPECT_EQ(FormattedNumber(-5), "-5");
    EXPECT_EQ(FormattedNumber(1.5), " 1.5");
    EXPECT_EQ(FormattedNumber(12632256), " 12632256");
}

TEST(NumberText, FractionsKeepFifteenFigures) {
    EXPECT_EQ(NumberText(1.0 / 3.0).substr(0, 8), "0.333333");
    EXPECT_EQ(NumberText(100.25), "100.25");
    EXPECT_EQ(NumberText(-0.0), "0");
}

TEST(NumberText, TheDesktopsLanguageBringsNoComma) {
    const char* const set = std::setlocale(LC_NUMERIC, "pt_PT.UTF-8");
    EXPECT_EQ(NumberText(1.5), "1.5") << (set ? set : "language not installed");
    EXPECT_EQ(Val("1.5"), 1.5);
    std::setlocale(LC_NUMERIC, "C");
}

TEST(NumberText, ValReadsTheLeadingNumber) {
    EXPECT_EQ(Val("12 ficheiros"), 12.0);
    EXPECT_EQ(Val("  -3.5x"), -3.5);
    EXPECT_EQ(Val("+7"), 7.0);
    EXPECT_EQ(Val("1 2 3"), 123.0);
    EXPECT_EQ(Val("1e3"), 1000.0);
    EXPECT_EQ(Val("1,5"), 1.0);
    EXPECT_EQ(Val("1.2.3"), 1.2);
}

TEST(NumberText, ValReadsOneExponentWithItsSign) {
    EXPECT_EQ(Val("25e-2"), 0.25);
    EXPECT_EQ(Val("5E+2"), 500.0);
    EXPECT_EQ(Val("3d2"), 300.0);
    EXPECT_EQ(Val("3D-1"), 0.3);
    EXPECT_EQ(Val("2 e 1"), 20.0);
    EXPECT_EQ(Val("1e2e3"), 100.0);
    EXPECT_EQ(Val("1e1.5"), 10.0);
    EXPECT_EQ(Val("1e2-1"), 100.0);
    EXPECT_EQ(Val("7e"), 7.0);
    EXPECT_EQ(Val("e5"), 0.0);
    EXPECT_EQ(Val(".e5"), 0.0);
    EXPECT_EQ(Val("1e999"), 0.0) << "beyond every number";
}

TEST(NumberText, ValOfNoNumberIsZero) {
    EXPECT_EQ(Val(""), 0.0);
    EXPECT_EQ(Val("abc"), 0.0);
    EXPECT_EQ(Val("-"), 0.0);
    EXPECT_EQ(Val("."), 0.0);
    EXPECT_EQ(Val("--5"), 0.0);
}

TEST(NumberText, TrimTakesBlanksOffBothEnds) {
    EXPECT_EQ(Trim("  a b \t"), "a b");
    EXPECT_EQ(Trim("   "), "");
}

TEST(Colour, ChannelsStandBlueGreenRed) {
    EXPECT_EQ(RGB(1, 2, 3), 0x030201);
    EXPECT_EQ(RGB(255, 0, 0), 0x0000FF);
}

TEST(Colour, ChannelsAbove255CountAs255) {
    EXPECT_EQ(RGB(256, 300, 70000), 0xFFFFFF);
}

TEST(Colour, NegativeChannelIsError5) {
    EXPECT_EQ(ErrorOf([] { RGB(-1, 0, 0); }), kInvalidArgument);
    EXPECT_EQ(ErrorOf([] { RGB(0, 0, -1); }), kInvalidArgument);
}

TEST(Colour, OutOfRangeDrawsWhite) {
    EXPECT_EQ(PixelOf(0x123456), 0x123456U);
    EXPECT_EQ(PixelOf(0x1000003), 0xFFFFFFU);
    EXPECT_EQ(PixelOf(-1), 0xFFFFFFU);
}

TEST(ResumeNext, RunsEachStatementWhateverHappenedBefore) {
    std::string run;
    ResumeNext([&] { run += 'a'; }, [] { throw RuntimeError(kOverflow); }, [&] { run += 'b'; },
               [] { throw std::bad_alloc(); }, [&] { run += 'c'; });
    EXPECT_EQ(run, "abc");
}

TEST(ResumeNext, LetsForeignErrorsPass) {
    EXPECT_THROW(ResumeNext([] { throw 1; }), int);
}

TEST(CurrentError, NamesMemoryAndForeignErrors) {
    const auto numberOf = [](auto thrown) {
        try {
            throw thrown;
        } catch (...) {
            return CurrentError().Number();
        }
    };
    EXPECT_EQ(numberOf(std::bad_alloc()), kOutOfMemory);
    EXPECT_EQ(numberOf(RuntimeError(kDiskFull)), kDiskFull);
    EXPECT_EQ(numberOf(1), kInternalError);
}

TEST(RuntimeError, TextNamesTheErrorAndItsDetail) {
    EXPECT_EQ(RuntimeError(kDiskFull).Text(), "Disco cheio");
    EXPECT_EQ(RuntimeError(kDiskFull, "a.bmp").Text(), "Disco cheio: a.bmp");
}

} // namespace pintalux
