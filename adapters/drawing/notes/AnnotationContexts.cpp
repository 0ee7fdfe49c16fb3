// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/AnnotationContexts.h"

#include "drawing/entities/Inserts.h"
#include "drawing/entities/Texts.h"
#include "tags/ObjectLinks.h"

namespace sm::drawing {

namespace {

/// One form of an entity: its scale (340), whether it is the entity's own (290), and its places, turn and scales.
struct Context {
    Handle scale = 0;
    bool isDefault = false;
    Vec3 first, second; ///< groups 10 and 11
    double rotation = 0;
    Vec3 factors{1, 1, 1};
    bool hasFirst = false, hasSecond = false;
};

void TakeTag(const TagCursor& tag, Context& context)
{
    switch (tag.Code()) {
    case 340:
        context.scale = tag.HandleValue();
        break;
    case 290:
        context.isDefault = tag.Integer() != 0;
        break;
    case 10:
        context.first.x = tag.Real();
        context.hasFirst = true;
        break;
    case 20:
        context.first.y = tag.Real();
        break;
    case 30:
        context.first.z = tag.Real();
        break;
    case 11:
        context.second.x = tag.Real();
        context.hasSecond = true;
        break;
    case 21:
        context.second.y = tag.Real();
        break;
    case 31:
        context.second.z = tag.Real();
        break;
    case 41:
        context.factors.x = tag.Real();
        break;
    case 42:
        context.factors.y = tag.Real();
        break;
    case 43:
        context.factors.z = tag.Real();
        break;
    case 50:
        context.rotation = tag.Real();
        break;
    default:
        break;
    }
}

std::vector<Context> ContextsOf(const Drawing::Source& source, const EntityRecord& record)
{
    const Handle manager =
        DictionaryEntry(source, ExtensionDictionaryOf(source.TagsOf(record)), "AcDbContextDataManager");
    const NamedSlice* const scales = source.FindObject(DictionaryEntry(source, manager, "ACDB_ANNOTATIONSCALES"));
    std::vector<Context> contexts;
    if (scales == nullptr || scales->name != "DICTIONARY")
        return contexts;
    ForEachObjectTag(source, *scales, [&](const TagCursor& entry) {
        const bool value = entry.Code() == 350 || entry.Code() == 360;
        const NamedSlice* const object = value ? source.FindObject(entry.HandleValue()) : nullptr;
        if (object != nullptr && object->name.ends_with("CONTEXTDATA_CLASS"))
            ForEachObjectTag(source, *object,
                             [&, &context = contexts.emplace_back()](const TagCursor& tag) { TakeTag(tag, context); });
    });
    return contexts;
}

/// Drawing units for one unit of paper.
double UnitsOf(const Drawing::Source& source, Handle scale)
{
    const NamedSlice* const object = source.FindObject(scale);
    double paper = 0, drawing = 0;
    if (object != nullptr && object->name == "SCALE")
        ForEachObjectTag(source, *object, [&](const TagCursor& tag) {
            paper = tag.Code() == 140 ? tag.Real() : paper;
            drawing = tag.Code() == 141 ? tag.Real() : drawing;
        });
    return paper > 0 && drawing > 0 ? drawing / paper : 0;
}

/// The form for a scale, and how much larger text is in it than in the entity's own form.
struct Form {
    Context context, own;
    double growth = 1;
    /// The entity's turn in this form; writers differ in whether the form's own is in degrees or in radians.
    [[nodiscard]] double TurnOf(double entityDegrees) const
    {
        constexpr double kTolerance = 1e-6, kDegrees = 57.29577951308232;
        if (context.rotation == own.rotation)
            return entityDegrees;
        const bool radians = std::abs(own.rotation - entityDegrees) > kTolerance;
        return radians ? context.rotation * kDegrees : context.rotation;
    }
};

std::optional<Form> FormAt(const Drawing& drawing, const EntityRecord& record, Handle scale)
{
    const Drawing::Source& source = drawing.Tags();
    const std::vector<Context> contexts = ContextsOf(source, record);
    const auto own = std::find_if(contexts.begin(), contexts.end(), [](const Context& c) { return c.isDefault; });
    const auto wanted =
        std::find_if(contexts.begin(), contexts.end(), [&](const Context& c) { return c.scale == scale; });
    if (own == contexts.end() || wanted == contexts.end() || wanted == own)
        return std::nullopt;
    const double units = UnitsOf(source, own->scale);
    const Form form{*wanted, *own, units > 0 ? UnitsOf(source, scale) / units : 0};
    return form.growth > 0 && std::isfinite(form.growth) ? std::optional(form) : std::nullopt;
}

} // namespace

Handle AnnotationScaleOf(const Drawing& drawing, const EntityRecord& viewport)
{
    const Drawing::Source& source = drawing.Tags();
    if (!source.HasContextData())
        return 0;
    const Handle record =
        DictionaryEntry(source, ExtensionDictionaryOf(source.TagsOf(viewport)), "ASDK_XREC_ANNOTATION_SCALE_INFO");
    const NamedSlice* const object = source.FindObject(record);
    Handle scale = 0;
    if (object != nullptr)
        ForEachObjectTag(source, *object,
                         [&](const TagCursor& tag) { scale = tag.Code() == 340 ? tag.HandleValue() : scale; });
    return scale;
}

bool SupportsScale(const Drawing& drawing, const EntityRecord& record, Handle scale)
{
    const Drawing::Source& source = drawing.Tags();
    const std::vector<Context> contexts = ContextsOf(source, record);
    const auto named = [&](const Context& context) { return context.scale == scale; };
    if (contexts.empty() || std::any_of(contexts.begin(), contexts.end(), named))
        return true;
    // Drawings that were put into one another bring scales of the same ratio along.
    const double units = UnitsOf(source, scale);
    return std::any_of(contexts.begin(), contexts.end(),
                       [&](const Context& context) { return units > 0 && UnitsOf(source, context.scale) == units; });
}

void AdaptTo(const Drawing& drawing, const EntityRecord& record, Handle scale, TextData& text)
{
    const std::optional<Form> form = FormAt(drawing, record, scale);
    if (!form || !form->context.hasFirst)
        return;
    const double z = text.insertion.z;
    text.insertion = {form->context.first.x, form->context.first.y, z};
    text.alignment = {form->context.second.x, form->context.second.y, z};
    text.rotation = form->TurnOf(text.rotation);
    text.height *= form->growth;
}

// The direction stands before the place here.
void AdaptTo(const Drawing& drawing, const EntityRecord& record, Handle scale, MTextData& text)
{
    const std::optional<Form> form = FormAt(drawing, record, scale);
    const bool known = form && form->context.hasFirst && form->context.hasSecond;
    const Vec3 along = known ? form->context.first : Vec3{};
    constexpr double kTolerance = 1e-3;
    if (std::abs(along.x * along.x + along.y * along.y + along.z * along.z - 1) > kTolerance)
        return;
    text.direction = along;
    text.hasDirection = true;
    text.insertion = form->context.second;
    text.height *= form->growth;
    text.width *= form->growth;
    text.columnWidth *= form->growth;
    text.columnGutter *= form->growth;
}

void AdaptTo(const Drawing& drawing, const EntityRecord& record, Handle scale, InsertData& insert)
{
    const std::optional<Form> form = FormAt(drawing, record, scale);
    if (!form || !form->context.hasFirst)
        return;
    insert.insertion = form->context.first;
    insert.rotation = form->TurnOf(insert.rotation);
    insert.scale = form->context.factors;
}

} // namespace sm::drawing
