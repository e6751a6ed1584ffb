#pragma once

#include "frame/StatusTab.h"

using DevStatusTab = StatusTab;
