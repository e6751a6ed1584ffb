#pragma once

#include "widgets/WLineEditPlus.h"
#include "widgets/ZeqTextEdit.h"

/// One line of text, bound to a text of the database.
class WLineEditZeq : public ZeqTextEdit<WLineEditPlus> {
public:
    WLineEditZeq(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr)
        : ZeqTextEdit(resource, key, indexed, parent) {}
};
