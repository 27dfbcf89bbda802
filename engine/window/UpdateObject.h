#pragma once

namespace zel {

/// Something that is updated: a task of the scheduler, a part of one, or an object that the loop
/// owns.
class UpdateObject {
public:
    virtual ~UpdateObject() = default;
    virtual void update() = 0;
};

/// Something that draws itself onto the canvas.
class RenderObject {
public:
    virtual ~RenderObject() = default;
    virtual void render() = 0;
};

/// Something that does both.
class UpdateAndRenderObject : public UpdateObject, public RenderObject {
public:
    void update() override = 0;
    void render() override = 0;
};

} // namespace zel
