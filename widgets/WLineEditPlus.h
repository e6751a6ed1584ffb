#pragma once

#include "widgets/TextPlus.h"

#include <Wt/WLineEdit>

class WLineEditPlus : public TextPlus<Wt::WLineEdit> {
public:
    explicit WLineEditPlus(Wt::WContainerWidget* parent = nullptr) : TextPlus(parent) {}
};
