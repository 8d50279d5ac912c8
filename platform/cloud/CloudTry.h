#pragma once

#include <expected>

// Hands the error of `expression` to the caller, for results whose value is not needed.
#define CLOUD_TRY(expression)                                                                                \
    do {                                                                                                     \
        if (auto tried = (expression); !tried) return std::unexpected(std::move(tried.error()));             \
    } while (false)
