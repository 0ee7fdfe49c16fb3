// What the library's object model knows better than the DXF it writes, by handle.

// Object types of the library.
const kAttrib = 2, kAttdef = 3, kVertex2d = 10, kLayer = 51, kLwPolyline = 77;
const kEntity = 0, kObject = 1; // supertypes
const kConstantWidth = 4;       // bit of an LWPOLYLINE's flag
const kSingleLine = 1;          // "mtext_type" of an attribute
const kByValue = 3, kByBlock = 1; // "alpha_type"

function valueOf(library, object, field) {
    const answer = library.dwg_dynapi_entity_value(object, field);
    return answer.success ? answer.data : undefined;
}

/** Group 440: 0x02 in the high byte for a value, 0x01 for "by block"; none for "by layer". */
function transparencyOf(library, entity) {
    const color = library.dwg_object_entity_get_color_object(entity);
    if (color.alpha_type === kByValue)
        return 0x02000000 | (color.alpha & 0xFF);
    return color.alpha_type === kByBlock ? 0x01000000 : undefined;
}

/** Pairs of start and end width, one a vertex; undefined when all are zero. */
function widthsOf(library, polyline) {
    const count = valueOf(library, polyline, 'num_widths') ?? 0;
    const list = valueOf(library, polyline, 'widths');
    if (count <= 0 || count > 1e7 || !list)
        return undefined;
    const widths = library.dwg_ptr_to_double_array(list, 2 * count);
    return Array.from(widths).some(width => width !== 0) ? widths : undefined;
}

function correctionOf(library, type, tio) {
    switch (type) {
    case kLayer:
        return { layerOff: valueOf(library, tio, 'off') !== 0 };
    case kLwPolyline: {
        const widths = widthsOf(library, tio);
        const constant = (valueOf(library, tio, 'flag') & kConstantWidth) !== 0;
        return widths && !constant ? { widths } : {};
    }
    case kAttrib:
    case kAttdef: {
        // The flags behind an embedded text are read from the wrong place: such an attribute is a plain, visible one.
        const type_ = valueOf(library, tio, 'mtext_type');
        const plain = type_ === undefined || type_ <= kSingleLine;
        return { attributeFlags: plain ? valueOf(library, tio, 'flags') & 0xF : 0 };
    }
    case kVertex2d: {
        const bulge = valueOf(library, tio, 'bulge');
        return bulge ? { bulge } : {};
    }
    default:
        return {};
    }
}

/** Handle (upper-case hexadecimal, as in the DXF) to what must stand in its entry; null for a model without objects. */
export function collectCorrections(library, data) {
    const corrections = new Map();
    const count = library.dwg_get_num_objects(data);
    for (let i = 0; i < count; ++i) {
        const object = library.dwg_get_object(data, i);
        if (!object)
            continue;
        const supertype = library.dwg_object_get_supertype(object);
        if (supertype !== kEntity && supertype !== kObject)
            continue;
        const tio = supertype === kEntity ? library.dwg_object_to_entity_tio(object) : library.dwg_object_to_object_tio(object);
        if (!tio)
            continue;
        const correction = correctionOf(library, library.dwg_object_get_fixedtype(object), tio);
        if (supertype === kEntity)
            correction.transparency = transparencyOf(library, library.dwg_object_to_entity(object));
        if (Object.values(correction).some(value => value !== undefined))
            corrections.set(library.dwg_obj_get_handle_value(object).toString(16).toUpperCase(), correction);
    }
    return count > 0 ? corrections : null;
}
