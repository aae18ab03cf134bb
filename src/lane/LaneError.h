// What the virtual lane cannot do, in a sentence for its user (UTF-8, one line).
#pragma once

#include <stdexcept>

class LaneError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};
