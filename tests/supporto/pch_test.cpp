// The translation unit that compiles the tests' precompiled header.
#include "pch_test.h"
