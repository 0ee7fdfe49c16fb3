// What the helper script puts right in the DXF that the library writes: each row a small DXF and the whole result.
//     node tests/dwg/DxfPatch_test.mjs
import assert from 'node:assert/strict';

import { correctDxf } from '../../share/sheetmaker-pdf/dwg/DxfPatch.mjs';

/** Groups written one a line, "code text", as the library's DXF. */
function dxf(lines) {
    return lines.trim().split('\n').map(line => line.trim()).filter(line => line !== '')
        .map(line => /^(-?\d+) ?(.*)$/.exec(line)).map(([, code, text]) => code.padStart(3) + '\r\n' + text + '\r\n').join('');
}

function corrected(lines, corrections) {
    const { chunks, lost } = correctDxf(Buffer.from(dxf(lines), 'latin1'), corrections && new Map(Object.entries(corrections)));
    return { text: Buffer.concat(chunks).toString('latin1'), lost: Object.fromEntries(lost) };
}

const rows = [
    ['the sign of a layer colour says whether it is off',
        `0 LAYER
         5 10
         2 On
         62     -7
         0 LAYER
         5 11
         2 Off
         62     -3
         0 EOF`,
        { 10: { layerOff: false }, 11: { layerOff: true } },
        `0 LAYER
         5 10
         2 On
         62 7
         0 LAYER
         5 11
         2 Off
         62 -3
         0 EOF`],
    ['viewports are numbered in each sheet; the first is the sheet, an off one says so',
        `0 VIEWPORT
         5 20
         102 {ACAD_XDICTIONARY
         360 21
         102 }
         330 5D
         8 0
         68 0
         69 0
         90 819232
         0 VIEWPORT
         5 22
         330 5D
         8 0
         68 0
         69 0
         90 131072
         0 VIEWPORT
         5 23
         330 259
         67 1
         8 0
         68 0
         69 0
         90 32864
         0 VIEWPORT
         5 24
         330 5D
         8 0
         68 0
         69 0
         90 32864
         0 EOF`,
        {},
        `0 VIEWPORT
         5 20
         102 {ACAD_XDICTIONARY
         360 21
         102 }
         330 5D
         8 0
         67 1
         68 1
         69 1
         90 819232
         0 VIEWPORT
         5 22
         330 5D
         8 0
         67 1
         68 0
         69 2
         90 131072
         0 VIEWPORT
         5 23
         330 259
         67 1
         8 0
         68 1
         69 1
         90 32864
         0 VIEWPORT
         5 24
         330 5D
         8 0
         67 1
         68 3
         69 3
         90 32864
         0 EOF`],
    ['transparency is added behind the layer',
        `0 LINE
         5 30
         8 0
         62 1
         0 LINE
         5 31
         8 0
         0 EOF`,
        { 30: { transparency: 0x0200007F } },
        `0 LINE
         5 30
         8 0
         440 33554559
         62 1
         0 LINE
         5 31
         8 0
         0 EOF`],
    ['an LWPOLYLINE gets the widths of its vertices',
        `0 LWPOLYLINE
         5 40
         8 0
         90 2
         70 0
         43 0.0
         10 1.5
         20 2.5
         42 0.5
         10 3.0
         20 4.0
         0 EOF`,
        { 40: { widths: [0, 0.25, 1, 2] } },
        `0 LWPOLYLINE
         5 40
         8 0
         90 2
         70 0
         10 1.5
         20 2.5
         40 0
         41 0.25
         42 0.5
         10 3.0
         20 4.0
         40 1
         41 2
         0 EOF`],
    ['true colours have 24 bits; that of a colour book falls back to its index',
        `0 LINE
         5 50
         8 0
         62 5
         420 -1023410171
         0 LINE
         5 51
         8 0
         62 6
         420 0
         430 PANTONE 11
         0 LINE
         5 52
         8 0
         420 0
         0 EOF`,
        {},
        `0 LINE
         5 50
         8 0
         62 5
         420 5
         0 LINE
         5 51
         8 0
         62 6
         430 PANTONE 11
         0 LINE
         5 52
         8 0
         420 0
         0 EOF`],
    ['an attribute has one group 70, and its embedded text leaves nothing in front of it',
        `0 ATTRIB
         5 60
         8 Text
         2 TAG
         70 104
         73 293
         280 0
         280 0
         70 2
         48 1.0
         60 0
         370 29
         8
         101 Embedded Object
         10 1.0
         70 3
         0 ATTDEF
         5 61
         8 0
         2 TAG
         70 1
         280 0
         0 EOF`,
        { 60: { attributeFlags: 0 }, 61: { attributeFlags: 8 } },
        `0 ATTRIB
         5 60
         8 Text
         2 TAG
         70 0
         73 293
         280 0
         280 0
         101 Embedded Object
         10 1.0
         70 3
         0 ATTDEF
         5 61
         8 0
         2 TAG
         70 8
         280 0
         0 EOF`],
    ['the bulge of a VERTEX comes from the model, in front of extended data',
        `0 VERTEX
         5 70
         8 0
         10 1.0
         42 0.0
         1001 APP
         1000 x
         0 EOF`,
        { 70: { bulge: 0.5 } },
        `0 VERTEX
         5 70
         8 0
         10 1.0
         42 0.5
         1001 APP
         1000 x
         0 EOF`],
    ['a table whose direction is no unit vector lies straight',
        `0 ACAD_TABLE
         5 75
         8 0
         2 *T9
         11 1.76849008290125E-186
         21 1.0
         31 6.253747198571662E+180
         0 ACAD_TABLE
         5 76
         8 0
         2 *T10
         11 0.6
         21 0.8
         31 0.0
         0 EOF`,
        {},
        `0 ACAD_TABLE
         5 75
         8 0
         2 *T9
         11 1.0
         21 0.0
         31 0.0
         0 ACAD_TABLE
         5 76
         8 0
         2 *T10
         11 0.6
         21 0.8
         31 0.0
         0 EOF`],
    ['spatial indexes go',
        `0 LAYER
         5 80
         2 A
         0 SPATIAL_INDEX
         5 81
         40 1.0
         0 EOF`,
        {},
        `0 LAYER
         5 80
         2 A
         0 EOF`],
    ['a text "0" is no entry', // the value of group 1
        `0 TEXT
         5 90
         8 0
         1 0
         62 -4
         420 -1
         0 EOF`,
        {},
        `0 TEXT
         5 90
         8 0
         1 0
         62 -4
         420 16777215
         0 EOF`],
    ['the comment that names the library goes once its mistakes are corrected',
        `999 LibreDWG 0.13
         0 SECTION
         2 HEADER
         0 EOF`,
        {},
        `0 SECTION
         2 HEADER
         0 EOF`],
    ['without corrections it stays, and the layers as they were',
        `999 LibreDWG 0.13
         0 LAYER
         5 10
         62 -7
         0 EOF`,
        null,
        `999 LibreDWG 0.13
         0 LAYER
         5 10
         62 -7
         0 EOF`],
];
for (const [name, before, corrections, after] of rows)
    assert.equal(corrected(before, corrections).text, dxf(after), name);

const counted = corrected(`0 ACAD_TABLE
    0 ACAD_TABLE
    5 1
    2 *T4
    0 ACAD_PROXY_ENTITY
    5 2
    92 0
    0 ACAD_PROXY_ENTITY
    5 3
    160 8
    310 0011223344556677
    0 EOF`, {});
assert.deepEqual(counted.lost, { ACAD_TABLE: 1, ACAD_PROXY_ENTITY: 1 }, 'what has lost its picture is counted');

const plain = dxf('0 SECTION\n2 ENTITIES\n0 LINE\n5 1\n8 0\n0 ENDSEC\n0 EOF').replaceAll('\r\n', '\n');
assert.equal(Buffer.concat(correctDxf(Buffer.from(plain), new Map()).chunks).toString(), plain, 'other entries stay as they were');
console.log(`${rows.length + 2} passed`);
