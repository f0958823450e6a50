#pragma once
#include "app/window.h"
