// What the stand-in for the companion CAD plug-in tells, and what it heard; given to it by the test in a message.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "hostapi/SPMessages.h"

namespace plotwise {

constexpr const char* caller = "Test Plotwise";
constexpr const char* selector = "Tell";

struct Told {
    int version[3] = {11, 1, 2};
    std::string scaleName = "1 : 50";
    double scale = 50;
    std::string viewName = "Workshop";
    double viewValues[2] = {1.5, 2.5};
    double angles[2] = {15, 40};
    unsigned char viewFlag = 7;
    bool endsScaleName = true; ///< else it fills its field
    bool endsViewName = true;
    int notOkAt = 0; ///< the number of the message, from 1, that is answered, but not with ok
    int errorAt = 0; ///< and of that which is answered with an error
    std::function<void(int)> before = [](int) {}; ///< runs before each is answered

    std::vector<std::string> heard; ///< selectors
    void* sender = nullptr;
    void* layer = nullptr;
};

struct TellMessage {
    SPMessageData d;
    Told* told;
};

} // namespace plotwise
