#include "validators/ClientRule.h"

#include <Wt/WIntValidator.h>
#include <Wt/WRegExpValidator.h>

#include <boost/json/object.hpp>

namespace Wt::Impl {

boost::json::object clientRule(const WValidator& validator) {
    boost::json::object rule;
    if (validator.isMandatory()) {
        rule["mandatory"] = true;
        rule["blank"] = validator.invalidBlankText().toUTF8();
    }
    if (const auto* regExp = dynamic_cast<const WRegExpValidator*>(&validator)) {
        const std::string pattern = regExp->regExpPattern().toUTF8();
        if (!pattern.empty()) {
            rule["pattern"] = pattern;
            if (regExp->flags().testFlag(MatchCaseInsensitive)) rule["ignoreCase"] = true;
            rule["noMatch"] = regExp->invalidNoMatchText().toUTF8();
        }
    } else if (const auto* number = dynamic_cast<const WIntValidator*>(&validator)) {
        rule["bottom"] = number->bottom();
        rule["top"] = number->top();
        rule["notANumber"] = number->invalidNotANumberText().toUTF8();
        rule["tooSmall"] = number->invalidTooSmallText().toUTF8();
        rule["tooLarge"] = number->invalidTooLargeText().toUTF8();
    }
    const std::string filter = validator.inputFilter();
    if (!filter.empty()) rule["filter"] = filter;
    return rule;
}

} // namespace Wt::Impl
