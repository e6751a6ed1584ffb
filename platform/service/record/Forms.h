// The forms of texts.
#pragma once

#include "platform/service/catalogue/KeyRow.h"

namespace zeqd {

/// An empty text has every form; whether it may be empty is a matter of its length.
bool hasForm(Form form, std::string_view text);

/// What a form asks for, for messages.
std::string_view formText(Form form);

} // namespace zeqd
