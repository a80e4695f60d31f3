#pragma once

#include "app/CameraPicture.h"
#include "tracker/ColourTracker.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

namespace mervak {

// The live camera picture in a picture box, about 15 frames a second. The
// frames are the colour tracker's own: the camera is opened once, by the
// tracker, and this only shows what it captures. One preview at a time.
class TrackerPreview : public QObject {
    Q_OBJECT
public:
    static constexpr int kRateMs = 66;

    explicit TrackerPreview(ColourTracker& tracker, QObject* parent = nullptr);
    ~TrackerPreview() override;

    // Shows the camera in `picture`, starting the tracker's capture when it is
    // not running; an open preview is kept. False, and no picture, without a camera.
    bool StartPreview(CameraPicture* picture);
    void StopPreview();
    bool isOpen() const { return !picture_.isNull(); }

    // Keeps the current frame, waiting a moment for the first one of a camera just
    // opened; and saves the kept frame as a bitmap.
    bool GrabFrame();
    bool SaveFrame(const QString& file) const;

private:
    void refresh();

    ColourTracker& tracker_;
    QPointer<CameraPicture> picture_;
    QTimer timer_;
    QImage grabbed_;
};

} // namespace mervak
