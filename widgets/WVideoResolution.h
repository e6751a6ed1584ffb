#pragma once

#include "widgets/WWidgetZeq.h"

#include <Wt/WText>

/// "1920 x 1080", from two keys of a held table, read only.
class WVideoResolution : public Wt::WText, public WWidgetZeq {
public:
    WVideoResolution(const char* resource, const char* horizontalKey, const char* verticalKey, bool indexed,
                     Wt::WContainerWidget* parent = nullptr);

    /// Does nothing and gives 0.
    unsigned readFromDatabase(const Indexes& indexes, Errors& errors, bool force) override;
    /// Empty when the records differ.
    void getZeqParam(const json_t* table, const Indexes& indexes, bool force) override;

    // As extracted last, in pixels and lines.

    unsigned horizontalResolution() const { return mHorizontal; }
    unsigned verticalResolution() const { return mVertical; }

private:
    const char* mVerticalKey;
    unsigned mHorizontal = 0;
    unsigned mVertical = 0;
};
