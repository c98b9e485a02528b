// The main window: a fixed, borderless 600 x 600 picture, and the program's start-up.
#pragma once

#include <QLockFile>
#include <QWidget>
#include <cstdint>
#include <memory>

class frmFond : public QWidget {
    Q_OBJECT

public:
    explicit frmFond(QWidget *parent = nullptr);

    // Start-up. Returns false when another instance already runs: the program must then end.
    bool Form_Load();

    // Pointer position in the strip at the start of a drag, and whether a drag is under way.
    int32_t mPriseX = 0;
    int32_t mPriseY = 0;
    bool mGlisse = false;
    // True from a press of Ctrl until the next release of any key.
    bool mCtrl = false;

private:
    std::unique_ptr<QLockFile> mInstance;
};
