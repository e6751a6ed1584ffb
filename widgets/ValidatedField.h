#pragma once

#include "widgets/WLineEditUInt32Zeq.h"
#include "widgets/WLineEditZeq.h"

#include <Wt/WIntValidator>
#include <Wt/WRegExpValidator>

/// A bound line edit with a validator of its own, which the widget owns.
template <class Field, class Validator>
class ValidatedField : public Field {
public:
    /// Mandatory: an empty field is not valid. Off at first.
    void mandatorySet(bool mandatory) { mValidator->setMandatory(mandatory); }

    bool isValid() { return this->validate() == Wt::WValidator::Valid; }

protected:
    ValidatedField(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent,
                   Validator* validator, int maxLength)
        : Field(resource, key, indexed, parent), mValidator(validator) {
        this->addChild(mValidator);
        this->setValidator(mValidator);
        this->setMaxLength(maxLength);
    }

private:
    Validator* mValidator;
};

/// The whole text matches a regular expression. `maxLength` in characters.
class PatternField : public ValidatedField<WLineEditZeq, Wt::WRegExpValidator> {
protected:
    PatternField(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent,
                 const char* pattern, int maxLength)
        : ValidatedField(resource, key, indexed, parent,
                         new Wt::WRegExpValidator(Wt::WString::fromUTF8(pattern)), maxLength) {}
};

/// A whole number from bottom to top, of at most three digits.
class RangeField : public ValidatedField<WLineEditUInt32Zeq, Wt::WIntValidator> {
protected:
    RangeField(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent, int bottom,
               int top)
        : ValidatedField(resource, key, indexed, parent, new Wt::WIntValidator(bottom, top), 3) {}
};
