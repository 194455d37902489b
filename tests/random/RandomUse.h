// The program used at random: each event is done with real events of the toolkit, whatever it asks is
// answered at random, and what must always hold is looked at after each.
#pragma once

#include "random/Events.h"
#include "support/Program.h"

#include <map>

namespace pintalux {

class RandomUse : public ProgramTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Does the events until a promise is broken; the place of that event, or -1.
    int Do(const std::vector<RandomEvent>& events);

  private:
    using Numbers = std::array<unsigned, 4>;
    void DoOne(const RandomEvent& event);
    void Tool(const Numbers& n);
    void Hand(const std::string& act, const Numbers& n);
    void DragOnImage(const Numbers& n);
    void DragPiece(const Numbers& n);
    void Menu(const Numbers& n);
    void Bar(const Numbers& n);
    void Key(const Numbers& n);
    void ImageKey(const Numbers& n);
    void Wheel(const Numbers& n);
    void Walk(const Numbers& n);
    void Zoom(const Numbers& n);
    void Poke(QWidget& panel, const Numbers& n);
    void Scroll(const Numbers& n);
    void Window(const Numbers& n);
    void Open(const Numbers& n);
    void Close(const Numbers& n);
    void AnswerAtRandom(QWidget& dialog);
    std::string SomeFile(unsigned number) const;
    void KeepSmall();
    void InStroke(const frmImage& image);
    void AfterCut();

    /// What is broken; empty if all is well.
    std::string Broken();
    std::string BrokenOf(const frmImage& image);
    std::string BrokenBounds() const;

    unsigned answers_ = 0;              ///< Decides the next answer.
    std::string story_;                 ///< What was done last, for a reader.
    const frmImage* pressed_ = nullptr; ///< Where a button is held.
    int button_ = 0;
    int looks_ = 0; ///< At dialogs, in this event.
    /// Documents whose image may differ from their state until the next one is recorded.
    std::map<const frmImage*, int> inStroke_;
    std::map<const frmImage*, bool> stretched_;
};

} // namespace pintalux
