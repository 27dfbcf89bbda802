#pragma once

#include <memory>

#include "app/screens/CareerScreen.h"
#include "app/screens/RowList.h"

namespace zel {
class Bitmap;
class Image;
struct FrameRect;
} // namespace zel

class ReportPages;
struct Sketch;

/// The fight as a sketch on squared paper, with a list of what the log says.
class MenuGameWhere : public CareerScreen {
public:
    /// REQUIRES: the pages outlive the screen.
    explicit MenuGameWhere(ReportPages& pages);
    ~MenuGameWhere() override;

    void onEnter() override;
    void onLeave() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void showSketch();
    void drawSketch(const Sketch& sketch);
    void showPart(const char* name, std::unique_ptr<zel::Image>& image, const zel::FrameRect& part);

    ReportPages& pages;
    bool endsDay = true;                 // by being left; the other page of the flight doesn't
    std::unique_ptr<zel::Bitmap> bitmap; // null until it is first shown
    std::unique_ptr<zel::Image> map;     // of it, and the next one
    std::unique_ptr<zel::Image> bar;
    RowList rows;
};
