// The eight direction buttons; see FillCompass in toolbox.h.
// SPDX-License-Identifier: MIT
#include <iterator>

#include "controls/toolbox/toolbox.h"

namespace kelu {

void FillCompass(Toolbox& toolbox) {
    static constexpr const char* kArrows[] = {"arrow_nw", "arrow_n",  "arrow_ne", "arrow_w",
                                              "arrow_e",  "arrow_sw", "arrow_s",  "arrow_se"};
    toolbox.SetButtonSize({24, 24});
    toolbox.SetMargin(1);
    toolbox.SetGap(1);
    toolbox.SetColumns(static_cast<int>(std::size(kArrows)));
    for (const char* arrow : kArrows) {
        const int index = toolbox.AddButton(QString::number(toolbox.Count() + 1));
        toolbox.SetIconName(index, QString::fromLatin1(arrow));
    }
    toolbox.SetCurrent(3);
}

}  // namespace kelu
