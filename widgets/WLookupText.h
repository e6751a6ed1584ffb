#pragma once

#include <Wt/WText>

#include <string>
#include <vector>

/// A text that is looked up from a record, read only. Several records show their common text.
class WLookupText : public Wt::WText {
public:
    using Indexes = std::vector<unsigned>;
    using Errors = std::vector<std::string>;
    /// 0 or 1; the text counts only after 0.
    using Lookup = unsigned (*)(unsigned index, std::string& text, Errors& errors);

    enum class Shows { CommonText, FirstRecord };

    WLookupText(Lookup lookup, Wt::WContainerWidget* parent, Shows shows = Shows::CommonText);

    /// Up to the first failure, whose result it gives and whose text is empty, or the first difference.
    virtual unsigned readFromDatabase(const Indexes& indexes, Errors& errors);
    /// What stands there where the records differ; nothing at first.
    void setDiffersText(const Wt::WString& text) { mDiffers = text; }

private:
    Lookup mLookup;
    Shows mShows;
    Wt::WString mDiffers;
};
