// Turns a DWG into a DXF:   node --liftoff-only to-dxf.mjs PACKAGE_FOLDER IN.dwg OUT.dxf
//
// PACKAGE_FOLDER is that of the npm package that package.json names. The library reads the DWG twice: once to write the
// DXF, once for its object model, out of which the values come that its DXF gets wrong (see Corrections.mjs).
// What the DXF lacks is printed as lines "lost: KIND COUNT". The exit code is 0 when OUT.dxf holds a whole drawing.
import fs from 'node:fs';
import path from 'node:path';
import { pathToFileURL } from 'node:url';

import { collectCorrections } from './Corrections.mjs';
import { correctDxf } from './DxfPatch.mjs';

const kCritical = 128; // error bits from here on mean that the library gave the file up

/** The library's own chatter goes nowhere: only what this script says is read. */
async function loadLibrary(packageFolder) {
    const file = path.join(packageFolder, 'wasm', 'libredwg-web.js');
    const { default: create } = await import(pathToFileURL(file));
    return create({ print: () => {}, printErr: () => {} });
}

/** The DXF's bytes; null when the library refuses the DWG. */
function writeDxf(library) {
    library.dwg_write_dxf('in.dwg', 'out.dxf');
    return library.FS.analyzePath('out.dxf', false).exists ? Buffer.from(library.FS.readFile('out.dxf')) : null;
}

/** The library may trap on a model that it could write; the plain DXF is better than none. */
function correctionsOf(library) {
    try {
        const { error, data } = library.dwg_read_file('in.dwg');
        return error < kCritical && data ? collectCorrections(library, data) : null;
    } catch {
        return null;
    }
}

async function main([packageFolder, source, target]) {
    const library = await loadLibrary(packageFolder);
    library.FS.writeFile('in.dwg', fs.readFileSync(source));
    const dxf = writeDxf(library);
    if (dxf === null || !dxf.includes('\nENTITIES') || !dxf.includes('\nEOF')) {
        console.log('refused: the library finds no drawing in it');
        return 1;
    }
    const corrections = correctionsOf(library);
    if (corrections === null)
        console.log('lost: CORRECTIONS 1');
    const { chunks, lost } = correctDxf(dxf, corrections);
    const file = fs.openSync(target, 'w');
    for (const chunk of chunks)
        fs.writeSync(file, chunk);
    fs.closeSync(file);
    for (const [kind, count] of lost)
        console.log(`lost: ${kind} ${count}`);
    return 0;
}

try {
    process.exitCode = await main(process.argv.slice(2));
} catch (error) {
    console.log('refused: ' + String(error?.message ?? error).split('\n')[0]);
    process.exitCode = 1;
}
