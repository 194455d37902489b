// What the look draws for a hand on the keys, and what it leaves out.
#include "inputs/ByHand.h"

#include <QDialogButtonBox>
#include <QImage>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QStyleOption>

namespace pintalux {

namespace {

const QColor kFrame(Qt::magenta);

/// What a part of the style looks like in one state.
template <class Option, class Draw>
QImage Drawn(Option option, QStyle::State state, Draw draw) {
    option.rect = QRect(0, 0, 120, 40);
    option.state = QStyle::State_Enabled | QStyle::State_Active | QStyle::State_Horizontal | state;
    option.palette.setColor(QPalette::Highlight, kFrame);
    option.palette.setColor(QPalette::Window, Qt::white);
    option.palette.setColor(QPalette::WindowText, Qt::black);
    QImage image(option.rect.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    draw(option, painter);
    return image;
}

/// A frame where the focus is, while the keys are used; none otherwise.
template <class Option, class Draw>
void ExpectFrameByKeys(const char* what, const Option& option, const QRect& place, Draw draw) {
    SCOPED_TRACE(what);
    const auto framed = [&](QStyle::State state) {
        return Framed(Drawn(option, state, draw).copy(place), kFrame);
    };
    EXPECT_TRUE(framed(QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange));
    EXPECT_FALSE(framed(QStyle::State_HasFocus)) << "focus by the pointer";
    EXPECT_FALSE(framed(QStyle::State_KeyboardFocusChange)) << "no focus";
    EXPECT_FALSE(framed({}));
}

TEST(LookStyle, WhatTheKeysHaveReachedIsFramed) {
    QStyle& style = *QApplication::style();
    const QRect whole(0, 0, 120, 40);
    ExpectFrameByKeys("push button", QStyleOptionButton(), whole, [&](const auto& option, QPainter& painter) {
        style.drawControl(QStyle::CE_PushButton, &option, &painter, nullptr);
    });
    ExpectFrameByKeys("tab", QStyleOptionTab(), whole.adjusted(3, 3, -3, -3),
                      [&](const auto& option, QPainter& painter) {
                          style.drawControl(QStyle::CE_TabBarTabLabel, &option, &painter, nullptr);
                      });
    const auto complex = [&style](QStyle::ComplexControl control) {
        return [&style, control](const auto& option, QPainter& painter) {
            style.drawComplexControl(control, &option, &painter, nullptr);
        };
    };
    ExpectFrameByKeys("list that drops down", QStyleOptionComboBox(), whole, complex(QStyle::CC_ComboBox));
    ExpectFrameByKeys("tool button", QStyleOptionToolButton(), whole, complex(QStyle::CC_ToolButton));
    QStyleOptionSlider slider;
    slider.orientation = Qt::Horizontal;
    slider.maximum = 100;
    slider.sliderPosition = slider.sliderValue = 40;
    slider.subControls = QStyle::SC_All;
    QStyleOptionSlider placed(slider);
    placed.rect = whole;
    const QRect handle = style.subControlRect(QStyle::CC_Slider, &placed, QStyle::SC_SliderHandle, nullptr);
    ASSERT_LT(handle.width(), 60);
    ExpectFrameByKeys("slider", slider, handle, complex(QStyle::CC_Slider));
}

TEST(LookStyle, OnlyTheTitleOfTheActiveWindowHasItsColour) {
    const auto coloured = [](bool active) {
        QStyleOptionTitleBar title;
        title.titleBarState = active ? int{QStyle::State_Active} : 0;
        title.subControls = QStyle::SC_TitleBarLabel;
        const QImage image = Drawn(title, active ? QStyle::State_Active : QStyle::State_None,
                                   [](const auto& option, QPainter& painter) {
                                       QApplication::style()->drawComplexControl(QStyle::CC_TitleBar, &option,
                                                                                 &painter, nullptr);
                                   });
        const QColor ground = image.pixelColor(60, 30);
        return ground.red() > ground.green() + 60 && ground.blue() > ground.green() + 60; // of the magenta
    };
    EXPECT_TRUE(coloured(true));
    EXPECT_FALSE(coloured(false));
}

TEST(LookStyle, AFocusRectangleIsAFrameWhileTheKeysAreUsed) {
    const auto draw = [](const auto& option, QPainter& painter) {
        QApplication::style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, nullptr);
    };
    const QStyleOptionFocusRect option;
    EXPECT_TRUE(Framed(Drawn(option, QStyle::State_KeyboardFocusChange, draw), kFrame));
    QImage bare(120, 40, QImage::Format_RGB32);
    bare.fill(Qt::white);
    EXPECT_EQ(Drawn(option, QStyle::State_HasFocus, draw), bare);
}

TEST(LookStyle, ButtonsOfDialogsHaveNoPictures) {
    QDialogButtonBox box(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Open |
                         QDialogButtonBox::Save | QDialogButtonBox::Yes | QDialogButtonBox::No);
    ASSERT_EQ(box.buttons().size(), 6);
    for (const QAbstractButton* button : box.buttons())
        EXPECT_TRUE(button->icon().isNull()) << button->text().toStdString();
}

} // namespace

} // namespace pintalux
