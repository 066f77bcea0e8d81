#pragma once

#include "brtrav.h"
