// Fitting the window's blocks to its size: the left column follows the minimap's width.
#include "form1.h"

#include <QFrame>
#include <QGroupBox>

void Form1::ArrangeControls() {
    const float clientWidth = static_cast<float>(width());
    const float clientHeight = static_cast<float>(height());
    const Placement minimap = Picture3->placement();
    // Each move is skipped when its size would be negative; the rest still run.
    placeWidget(
        Frame2, frame2Placement,
        {10, clientHeight - frame2Placement.height - 10, minimap.width, frame2Placement.height});
    Picture4->move({10, minimap.top + minimap.height + 10, minimap.width,
                    frame2Placement.top - minimap.height - minimap.top - 20});
    Picture5->move(
        {0, Picture5->placement().top, Picture4->placement().width, Picture5->placement().height});
    if (placeWidget(Picture1, picture1Placement,
                    {minimap.width + 20, minimap.top, clientWidth - minimap.width - 30,
                     clientHeight - minimap.top - 10}))
        viewportClient->setGeometry(Picture1->contentsRect());
    UpdateViewFrame();
}

void Form1::UpdateViewFrame() {
    const Placement map = Picture2->placement();
    const FrameRect frame =
        ViewFrameFor(map.left, map.top, picture1Placement.width, picture1Placement.height);
    Shape1->move({frame.left, frame.top, frame.width, frame.height});
}
