#pragma once

#include <Wt/WAbstractItemModel.h>
#include <Wt/WBoostAny.h>

#include <memory>
#include <string>

namespace Wt::Impl {

class Pattern;

/// What WAbstractItemModel::match() looks for.
class ItemMatch {
public:
    ItemMatch(const boost::any& value, WFlags<MatchFlag> flags);
    bool matches(const boost::any& candidate) const;

private:
    std::string folded(std::string text) const;

    boost::any mValue;
    std::string mText;
    int mHow;
    bool mCaseSensitive;
    std::shared_ptr<const Pattern> mPattern;
};

} // namespace Wt::Impl
