#pragma once

#include <Wt/WString.h>

#include <utility>

namespace Wt {
class WFormWidget;
}

namespace Wt::Impl {

/// What is selected in a field of text, as the browser last told; nothing while it has not the focus.
class TextSelection {
public:
    explicit TextSelection(const WFormWidget& field);

    int start() const { return mEnds.second > mEnds.first ? mEnds.first : -1; }
    int caret() const { return mEnds.second; }
    /// Empty also where the text has been cut meanwhile.
    WString of(const WString& text) const;

private:
    std::pair<int, int> mEnds{-1, -1}; // in characters
};

} // namespace Wt::Impl
