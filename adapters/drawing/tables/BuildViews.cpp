// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Model.h"

#include "base/text/Names.h"

namespace sm::drawing {

namespace {

template <class Point> bool Take(const TagCursor& tag, int base, Point& point)
{
    if (tag.Code() == base)
        point.x = tag.Real();
    else if (tag.Code() == base + 10)
        point.y = tag.Real();
    else
        return false;
    return true;
}

bool Take3(const TagCursor& tag, int base, Vec3& point)
{
    if (tag.Code() == base + 20)
        point.z = tag.Real();
    return tag.Code() == base + 20 || Take(tag, base, point);
}

/// Of a VIEW and a VPORT alike.
bool TakeDepth(const TagCursor& tag, ViewDepth& depth)
{
    switch (tag.Code()) {
    case 42:
        depth.lens = tag.Real();
        return true;
    case 43:
        depth.front = tag.Real();
        return true;
    case 44:
        depth.back = tag.Real();
        return true;
    case 71:
        depth.mode = tag.Integer();
        return true;
    default:
        return false;
    }
}

NamedView ReadView(const Model& model, const Slice& slice)
{
    NamedView view;
    ForEachTag(model, slice, [&](const TagCursor& tag) {
        if (Take(tag, 10, view.center) || Take3(tag, 11, view.direction) || Take3(tag, 12, view.target) ||
            TakeDepth(tag, view.depth))
            return;
        switch (tag.Code()) {
        case 2:
            view.name = model.Text(tag.Name());
            break;
        case 40:
            view.height = tag.Real();
            break;
        case 41:
            view.width = tag.Real();
            break;
        case 50:
            view.twist = tag.Real();
            break;
        case 70:
            view.paperSpace = (tag.Integer() & 1) != 0;
            break;
        default:
            break;
        }
    });
    return view;
}

struct ReadViewport {
    ModelView view;
    std::string name;
};

ReadViewport ReadModelView(const Model& model, const Slice& slice)
{
    ReadViewport read;
    ModelView& view = read.view;
    ForEachTag(model, slice, [&](const TagCursor& tag) {
        if (Take(tag, 12, view.center) || Take3(tag, 16, view.direction) || Take3(tag, 17, view.target) ||
            TakeDepth(tag, view.depth))
            return;
        switch (tag.Code()) {
        case 2:
            read.name = model.Text(tag.Name());
            break;
        case 40:
        case 45:
            view.height = tag.Real();
            break;
        case 41:
            view.aspect = tag.Real();
            break;
        case 51:
            view.twist = tag.Real();
            break;
        default:
            break;
        }
    });
    return read;
}

} // namespace

void BuildViews(Model& model)
{
    ForEachEntry(model, "VIEW", [&](const Slice& slice) {
        NamedView view = ReadView(model, slice);
        if (view.name.empty())
            model.findings.Add(Damage::NamelessEntry, slice.line);
        else
            model.views.push_back(std::move(view));
    });
    // Several entries of this name are the tiles of the screen; the first one is the current tile.
    ForEachEntry(model, "VPORT", [&](const Slice& slice) {
        const ReadViewport read = ReadModelView(model, slice);
        if (!model.modelView && base::SameName(read.name, "*Active"))
            model.modelView = read.view;
    });
    ForEachEntry(model, "APPID", [&](const Slice& slice) {
        ForEachTag(model, slice, [&](const TagCursor& tag) {
            if (tag.Code() == 2)
                model.applications.push_back(model.Text(tag.Name()));
        });
    });
}

} // namespace sm::drawing
