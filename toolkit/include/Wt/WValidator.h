#pragma once

#include <Wt/WFlags.h>
#include <Wt/WObject.h>
#include <Wt/WString.h>

#include <set>

namespace Wt {

class WFormWidget;

enum RegExpFlag { MatchCaseInsensitive = 0x1 };
W_DECLARE_OPERATORS_FOR_FLAGS(RegExpFlag)

/// Says whether an input is good. Checked in the browser while the user types, and on the server, whose
/// answer decides. May serve several form widgets; the base only asks that there be an input.
class WValidator : public WObject {
public:
    enum State {
        Invalid,      ///< there is an input, and it is wrong
        InvalidEmpty, ///< there is none, and one is mandatory
        Valid
    };

    class Result {
    public:
        Result() = default; ///< Invalid
        explicit Result(State state, const WString& message = WString()) : mState(state), mMessage(message) {}
        State state() const { return mState; }
        const WString& message() const { return mMessage; }

    private:
        State mState = Invalid;
        WString mMessage;
    };

    explicit WValidator(WObject* parent = nullptr);
    explicit WValidator(bool mandatory, WObject* parent = nullptr);
    ~WValidator() override;

    void setMandatory(bool mandatory); ///< default off: an empty input is then valid
    bool isMandatory() const { return mMandatory; }
    void setInvalidBlankText(const WString& text);
    WString invalidBlankText() const;

    virtual Result validate(const WString& input) const;

    /// A regular expression for a character that may be typed; empty: any.
    virtual std::string inputFilter() const;

protected:
    void repaint(); ///< the rule has changed: the form widgets check again

private:
    friend class WFormWidget;

    bool mMandatory = false;
    WString mBlankText;
    std::set<WFormWidget*> mFormWidgets;
};

} // namespace Wt
