// Goes through a DXF entry by entry and puts right what the library writes wrongly.

const kNewLine = 10;
const kDropped = new Set(['SPATIAL_INDEX']); // an index only, and at times a hundred times as large as the drawing
const kLost = new Set(['ACAD_PROXY_ENTITY', 'ACAD_TABLE']);
const kViewportOff = 0x20000; // bit of group 90
const kColorMask = 0xFFFFFF;

/** An entry's groups as [code, text] pairs; the text without blanks around it. */
function groupsOf(text) {
    const lines = text.split('\n');
    const groups = [];
    for (let i = 0; i + 1 < lines.length; i += 2)
        groups.push([Number(lines[i]), lines[i + 1].replace(/\r$/, '')]);
    return groups;
}

function textOf(groups, lineEnd) {
    return groups.map(([code, text]) => String(code).padStart(3) + lineEnd + text + lineEnd).join('');
}

const isFirst = (groups, code) => (group, index) => group[0] === code && groups.findIndex(other => other[0] === code) === index;

function replaceAll(groups, code, text) {
    const at = groups.findIndex(group => group[0] === code);
    const kept = groups.filter((group, index) => group[0] !== code || index === at);
    if (at < 0)
        return groups;
    kept[kept.findIndex(group => group[0] === code)] = [code, text];
    return kept;
}

/** Behind the layer's name, where the common groups stand. */
function insertCommon(groups, group) {
    const at = groups.findIndex(isFirst(groups, 8));
    return at < 0 ? groups : [...groups.slice(0, at + 1), group, ...groups.slice(at + 1)];
}

function correctLayer(groups, { layerOff }) {
    return groups.map(([code, text]) => code === 62 ? [code, String(Math.abs(Number(text)) * (layerOff ? -1 : 1))] : [code, text]);
}

/** Widths of the vertices, behind each 20 group; the constant width goes. */
function correctWidths(groups, { widths }) {
    let vertex = -1;
    return groups.filter(([code]) => ![40, 41, 43].includes(code)).flatMap(group => {
        vertex += group[0] === 20 ? 1 : 0;
        const pair = group[0] === 20 ? [widths[2 * vertex], widths[2 * vertex + 1]] : [];
        return [group, ...pair.map((width, index) => [40 + index, String(width ?? 0)])];
    });
}

/** One group 70, and nothing of the embedded text's own properties in front of it. */
function correctAttribute(groups, { attributeFlags }) {
    const embedded = groups.findIndex(([code]) => code === 101);
    const own = embedded < 0 ? groups : groups.slice(0, embedded);
    const rest = embedded < 0 ? [] : groups.slice(embedded);
    const lastFlag = own.findLastIndex(([code]) => code === 280);
    const strays = embedded < 0 ? [] : [6, 8, 48, 60, 62, 370];
    const kept = own.filter(([code], index) => !(index > lastFlag && strays.includes(code)));
    return [...replaceAll(kept, 70, String(attributeFlags)), ...rest];
}

function correctVertex(groups, { bulge }) {
    const kept = groups.filter(([code]) => code !== 42);
    const end = kept.findIndex(([code]) => code >= 1000);
    kept.splice(end < 0 ? kept.length : end, 0, [42, String(bulge)]);
    return kept;
}

/** Viewports are numbered in each sheet: the first one is the sheet itself. */
function correctViewport(groups, numbers) {
    const valueOf = code => groups.find(group => group[0] === code)?.[1].trim();
    const braces = groups.findIndex(([code, text]) => code === 102 && text.startsWith('}'));
    const owner = groups.slice(Math.max(braces, 0)).find(([code]) => code === 330)?.[1].trim() ?? '';
    const number = (numbers.get(owner) ?? 0) + 1;
    numbers.set(owner, number);
    const off = number > 1 && (Number(valueOf(90)) & kViewportOff) !== 0;
    let corrected = replaceAll(groups, 69, String(number));
    corrected = replaceAll(corrected, 68, String(off ? 0 : number));
    return valueOf(67) === undefined ? insertCommon(corrected, [67, '1']) : corrected;
}

/** A table's direction is a unit vector; what is none was read from the wrong place, and tables seldom lie askew. */
function correctTable(groups) {
    const partOf = code => Number(groups.find(group => group[0] === code)?.[1] ?? 0);
    const length = Math.hypot(partOf(11), partOf(21), partOf(31));
    if (Math.abs(length - 1) < 1e-6)
        return groups;
    const straight = { 11: '1.0', 21: '0.0', 31: '0.0' };
    return groups.map(([code, text]) => [code, straight[code] ?? text]);
}

/** 24-bit values only; that of a colour book's colour is unknown, and its index counts. */
function correctTrueColors(groups) {
    const fromBook = groups.some(([code]) => code === 430);
    return groups.filter(([code, text]) => !(code === 420 && fromBook && (Number(text) & kColorMask) === 0))
        .map(([code, text]) => code === 420 || code === 421 ? [code, String(Number(text) & kColorMask)] : [code, text]);
}

function correctEntry(kind, groups, correction, numbers) {
    let corrected = correctTrueColors(groups);
    if (kind === 'VIEWPORT')
        corrected = correctViewport(corrected, numbers);
    if (kind === 'ACAD_TABLE')
        corrected = correctTable(corrected);
    if (correction?.layerOff !== undefined)
        corrected = correctLayer(corrected, correction);
    if (correction?.widths !== undefined)
        corrected = correctWidths(corrected, correction);
    if (correction?.attributeFlags !== undefined)
        corrected = correctAttribute(corrected, correction);
    if (correction?.bulge !== undefined)
        corrected = correctVertex(corrected, correction);
    if (correction?.transparency !== undefined && !corrected.some(([code]) => code === 440))
        corrected = insertCommon(corrected, [440, String(correction.transparency)]);
    return corrected;
}

/** A table without its block, a proxy without its picture. */
function isLost(kind, text) {
    if (kind === 'ACAD_TABLE')
        return !/\n *2\r?\n\*T/i.test(text);
    return kind === 'ACAD_PROXY_ENTITY' && !/\n *(92|160)\r?\n *[1-9][0-9]*\r?\n *310/.test(text);
}

/** Positions of the lines "0" that begin an entry. */
function* entriesOf(dxf) {
    let code = true;
    for (let at = 0; at < dxf.length;) {
        const end = dxf.indexOf(kNewLine, at);
        const next = end < 0 ? dxf.length : end + 1;
        if (code && next - at <= 8 && dxf.latin1Slice(at, next).trim() === '0')
            yield at;
        code = !code;
        at = next;
    }
}

/**
 * `chunks` are the DXF's bytes after correction, `lost` counts what it lacks by kind.
 * Without corrections (null) only what needs none of the model is put right.
 */
export function correctDxf(dxf, corrections) {
    const chunks = [], numbers = new Map(), lost = new Map();
    const lineEnd = dxf.subarray(0, 200).includes('\r\n') ? '\r\n' : '\n';
    let begin = 0, kept = 0;
    const take = end => {
        const head = dxf.latin1Slice(begin, Math.min(end, begin + 200));
        const [, kind = '', , handle = ''] = /^\s*0\r?\n([^\r\n]*)\r?\n(\s*(?:5|105)\r?\n([^\r\n]*))?/.exec(head) ?? [];
        const correction = corrections?.get(handle.trim());
        const needsLook = correction !== undefined || kind === 'VIEWPORT' || kDropped.has(kind) || kLost.has(kind) ||
            dxf.subarray(begin, end).includes('\n420' + lineEnd) || dxf.subarray(begin, end).includes('\n421' + lineEnd);
        if (!needsLook)
            return;
        const text = dxf.latin1Slice(begin, end);
        if (isLost(kind, text))
            lost.set(kind, (lost.get(kind) ?? 0) + 1);
        chunks.push(dxf.subarray(kept, begin));
        if (!kDropped.has(kind))
            chunks.push(Buffer.from(textOf(correctEntry(kind, groupsOf(text), correction, numbers), lineEnd), 'latin1'));
        kept = end;
    };
    let inComment = true;
    for (const at of entriesOf(dxf)) {
        if (!inComment)
            take(at);
        else if (corrections !== null)
            kept = at; // it names the library, which readers take for a sign of its mistakes
        inComment = false;
        begin = at;
    }
    take(dxf.length);
    chunks.push(dxf.subarray(kept));
    return { chunks, lost };
}
