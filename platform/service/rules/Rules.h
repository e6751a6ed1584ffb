// The rules, one per resource and method that needs more than its limits.
#pragma once

#include "platform/service/domain/Context.h"

namespace zeqd {

/// Judges a request and does what follows from it. An error that it adds refuses the whole request.
using Rule = void (*)(Context&);

/// The rule of a resource for a method, or null.
Rule findRule(Res id, Method method);

void userCreated(Context& context);
void userChanged(Context& context);
void userDeleted(Context& context);

void deviceChanged(Context& context);
void deviceDeleted(Context& context);
void switchChanged(Context& context);
void switchDeleted(Context& context);

void edidCreated(Context& context);
void edidChanged(Context& context);
void edidDeleted(Context& context);
void upgradeCreated(Context& context);
void upgradeDeleted(Context& context);
void globalsChanged(Context& context);

void alertsAction(Context& context);
void edidAction(Context& context);
void swxAction(Context& context);
void rxAction(Context& context);
void txAction(Context& context);
void simAction(Context& context);

void adminLogin(Context& context);
void adminLogout(Context& context);
void userLogin(Context& context);
void userLogout(Context& context);

void sessionConnected(Context& context);
void sessionDisconnected(Context& context);

} // namespace zeqd
