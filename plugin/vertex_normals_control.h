#pragma once

// Exported for libraries that link against this one; the product itself does not use it.
class VertexNormalsControl {
public:
    VertexNormalsControl();

protected:
    bool enabled_ = true;
    void* target_ = nullptr;
};
