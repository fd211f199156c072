#include "plugin/vertex_normals_control.h"

VertexNormalsControl::VertexNormalsControl() = default;
