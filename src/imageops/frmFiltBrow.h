// The filter browser: a list of filters, the level, and a small sample to try them on. "Actualizar" leaves
// the choice in `FiltIndex` and `FiltLevel`; any other way out sets `FiltCancelled`.
#pragma once

#include "base/Flag.h"
#include "imageops/Sample.h"
#include "surface/window/Display.h"
#include "surface/window/Form.h"
#include "surface/window/Inputs.h"

#include <cstdint>
#include <string>
#include <vector>

namespace pintalux {

class ProgressBar;

inline std::int16_t FiltIndex = 0; ///< The filter chosen last: its row in the table.
inline std::int16_t FiltLevel = 0; ///< Its level as the slider gave it.
inline Flag FiltCancelled;         ///< The dialog was left without a choice.

/// Runs the filter of a row of the table, from 0, with the level as the slider gives it. Error 9 outside.
void RunFilter(int index, Surface& work, Surface& live, std::int16_t level, ProgressBar& Pb);

class frmFiltBrowForm : public Form, public SampleParts {
  public:
    frmFiltBrowForm();

    Label lblFilter{*this, "lblFilter", "Filtro"}; ///< Heads the list.
    ListBox FiltList{*this, "FiltList", OfferedFilters()};
    Surface LevelArea{*this, "LevelArea"}; ///< Keeps the room of the level while it is hidden.
    Label lblFiltLevel{LevelArea, "lblFiltLevel"}, lblValue{LevelArea, "lblValue"};
    Slider Slider1{LevelArea, "Slider1", 1, 10};
    CommandButton Command1{*this, "Command1", "Ver Amostra"};
    CommandButton cmdApply{*this, "cmdApply", "Actualizar"};
    CommandButton cmdCancel{*this, "cmdCancel", "Cancelar"};

    void FiltList_Click();
    void Command1_Click();
    void cmdApply_Click();
    void cmdCancel_Click();

  protected:
    void Form_Unload() override;

  private:
    static std::vector<std::string> OfferedFilters(); ///< The texts of the list.
    void LayOut();
    void ShowLevel(bool shown);
    void TellLevel();
    std::int16_t SampleLevel(int row) const;

    Flag FiltApplied; ///< Set once "Actualizar" was pressed.
};

extern AutoForm<frmFiltBrowForm> frmFiltBrow;

} // namespace pintalux
