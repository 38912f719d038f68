#pragma once

#include "look/TickPath.h"
