/* Timers: the message of calls at regular intervals. */
#ifndef HOSTAPI_AITIMER_H
#define HOSTAPI_AITIMER_H

#include "hostapi/SPMessages.h"

#define kCallerAITimer "AI Timer"
#define kSelectorAIGoTimer "AI Go"

/* Periods are counted in ticks. A period of 0 is kept, and treated as 1. */
enum { kTicksPerSecond = 60 };

/* Sent once a period while the timer is active and no mouse button is down. What falls due during a gesture is sent
 * once after it. */
typedef struct AITimerMessage {
    SPMessageData d;
    AITimerHandle timer;
} AITimerMessage;

#endif
