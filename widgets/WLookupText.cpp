#include "widgets/WLookupText.h"

#include "db/MergeValues.h"

WLookupText::WLookupText(Lookup lookup, Wt::WContainerWidget* parent, Shows shows)
    : Wt::WText(Wt::WString(), Wt::PlainText, parent), mLookup(lookup), mShows(shows) {}

unsigned WLookupText::readFromDatabase(const Indexes& indexes, Errors& errors) {
    std::string text;
    bool same = true;
    const bool firstOnly = mShows == Shows::FirstRecord && !indexes.empty();
    const unsigned result =
        mergeValues(firstOnly ? Indexes{indexes.front()} : indexes, text, same,
                    [&](unsigned index, std::string& next) { return mLookup(index, next, errors); });
    if (!same)
        setText(mDiffers);
    else
        setText(result == 0 ? Wt::WString::fromUTF8(text) : Wt::WString());
    return result;
}
