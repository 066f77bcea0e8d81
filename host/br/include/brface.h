#pragma once

#include "brparts.h"
