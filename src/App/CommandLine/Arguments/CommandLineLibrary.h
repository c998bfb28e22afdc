#pragma once

// Shadowing and sign conversions are CLI11's own affair.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wshadow"
#pragma GCC diagnostic ignored "-Wsign-conversion"
#include <CLI/CLI.hpp>
#pragma GCC diagnostic pop
