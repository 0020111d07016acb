#pragma once

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>

#include <xcb/xinput.h>

/// Counts what the server tells of the pointer by the X Input Extension, before Qt throws some of
/// it away.
class ReportCount : public QAbstractNativeEventFilter {
public:
    ReportCount() { QCoreApplication::instance()->installNativeEventFilter(this); }

    bool nativeEventFilter(const QByteArray& /*system*/, void* message,
                           qintptr* /*result*/) override
    {
        const auto& event = *static_cast<const xcb_ge_event_t*>(message);
        if (event.response_type != XCB_GE_GENERIC)
            return false;
        if (event.event_type == XCB_INPUT_MOTION)
            ++motions;
        else if (event.event_type == XCB_INPUT_BUTTON_PRESS)
            ++presses;
        return false;
    }

    int motions = 0;
    int presses = 0;
};
