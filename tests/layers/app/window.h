#pragma once
#include "core/upward.h"
