#pragma once

#include "widgets/WTextAreaPlus.h"
#include "widgets/ZeqTextEdit.h"

/// Several lines of text, bound to a text of the database.
class WTextAreaZeq : public ZeqTextEdit<WTextAreaPlus> {
public:
    WTextAreaZeq(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr)
        : ZeqTextEdit(resource, key, indexed, parent) {}

    /// In characters; the browser takes no more.
    virtual void setMaxLength(unsigned characters);

private:
    unsigned mMaxLength = 0; // 0 = no limit
};
