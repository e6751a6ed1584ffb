#pragma once

#include "widgets/TextPlus.h"

#include <Wt/WTextArea>

class WTextAreaPlus : public TextPlus<Wt::WTextArea> {
public:
    explicit WTextAreaPlus(Wt::WContainerWidget* parent = nullptr) : TextPlus(parent) {}
};
