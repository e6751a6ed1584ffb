#pragma once

#include "db/MergeValues.h"
#include "widgets/WWidgetZeq.h"

// The Db operations for a field, chosen by the type of its value: a text or a number.

unsigned zeqRead(const WWidgetZeq& field, unsigned index, std::string& value, WWidgetZeq::Errors& errors);
unsigned zeqRead(const WWidgetZeq& field, unsigned index, unsigned& value, WWidgetZeq::Errors& errors);

/// The value that these records share; 1 after the first failed read.
template <class Value>
unsigned zeqReadMerged(const WWidgetZeq& field, const WWidgetZeq::Indexes& records, Value& value, bool& same,
                       WWidgetZeq::Errors& errors) {
    return mergeValues(records, value, same,
                       [&](unsigned index, Value& next) { return zeqRead(field, index, next, errors); });
}

/// Of a held table: with several indexes the value that their rows share, else that of the one record.
unsigned zeqExtract(const json_t* table, const WWidgetZeq::Indexes& indexes, const char* key,
                    std::string& value, bool& same);
unsigned zeqExtract(const json_t* table, const WWidgetZeq::Indexes& indexes, const char* key, unsigned& value,
                    bool& same);

unsigned zeqWrite(const WWidgetZeq& field, unsigned index, const std::string& value,
                  WWidgetZeq::Errors& errors);
unsigned zeqWrite(const WWidgetZeq& field, unsigned index, unsigned value, WWidgetZeq::Errors& errors);

void zeqSetParam(json_t* params, const char* key, const std::string& value);
void zeqSetParam(json_t* params, const char* key, unsigned value);
