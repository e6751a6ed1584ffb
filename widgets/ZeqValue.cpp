#include "widgets/ZeqValue.h"

#include "db/Db.h"
#include "platform/client/ZeqObj.h"

using Indexes = WWidgetZeq::Indexes;
using Errors = WWidgetZeq::Errors;

unsigned zeqRead(const WWidgetZeq& field, unsigned index, std::string& value, Errors& errors) {
    return Db::db.readString(field.resource(), index, field.key(), value, errors);
}

unsigned zeqRead(const WWidgetZeq& field, unsigned index, unsigned& value, Errors& errors) {
    return Db::db.readUInt32(field.resource(), index, field.key(), value, errors);
}

unsigned zeqExtract(const json_t* table, const Indexes& indexes, const char* key, std::string& value,
                    bool& same) {
    same = true;
    return indexes.size() > 1 ? Db::db.extractStringMerge(table, indexes, key, value, same)
                              : Db::db.extractString(table, key, value);
}

unsigned zeqExtract(const json_t* table, const Indexes& indexes, const char* key, unsigned& value,
                    bool& same) {
    same = true;
    return indexes.size() > 1 ? Db::db.extractUInt32Merge(table, indexes, key, value, same)
                              : Db::db.extractUInt32(table, key, value);
}

unsigned zeqWrite(const WWidgetZeq& field, unsigned index, const std::string& value, Errors& errors) {
    return Db::db.writeString(field.resource(), index, field.key(), value, errors);
}

unsigned zeqWrite(const WWidgetZeq& field, unsigned index, unsigned value, Errors& errors) {
    return Db::db.writeUInt32(field.resource(), index, field.key(), value, errors);
}

void zeqSetParam(json_t* params, const char* key, const std::string& value) {
    ZeqObj_setString(params, key, value.c_str());
}

void zeqSetParam(json_t* params, const char* key, unsigned value) {
    ZeqObj_setUInt32(params, key, value);
}
