// The piece tree from npm under the work of the document benchmark. Prints "key|median|p99" in the units that
// DocumentBench.cpp names. Usage: node piece-tree.js FILE
const fs = require('fs');
const { PieceTreeTextBufferBuilder } = require('vscode-textbuffer');

const LF = 1; // the line ending of a new text
const LOOK_UP_BATCH = 1000;

// The same sequence as the other peers draw.
let state = 2463534242;
function random(limit) {
    state ^= state << 13;
    state ^= state >>> 17;
    state ^= state << 5;
    state >>>= 0;
    return state % limit;
}

function now() {
    return Number(process.hrtime.bigint());
}

function report(key, samples, divisor) {
    samples.sort((a, b) => a - b);
    const at = quantile => samples[Math.floor(quantile * (samples.length - 1) + 0.5)] / divisor;
    console.log(`${key}|${at(0.5)}|${at(0.99)}`);
}

function timed(work) {
    const start = now();
    work();
    return now() - start;
}

const bytes = fs.readFileSync(process.argv[2]);
let tree;
const before = process.memoryUsage().rss;
const loads = [];
for (let i = 0; i < 5; ++i) {
    tree = undefined;
    if (global.gc) global.gc();
    loads.push(timed(() => {
        const builder = new PieceTreeTextBufferBuilder();
        // Chunks of the size in which an editor reads files.
        for (let at = 0; at < bytes.length; at += 65536)
            builder.acceptChunk(bytes.toString('utf8', at, Math.min(at + 65536, bytes.length)));
        tree = builder.finish(true).create(LF);
    }));
}
report('load', loads, 1e6);
if (global.gc) global.gc();
const length = tree.getLength();
console.log(`memory|${(process.memoryUsage().rss - before) / length}|0`);

const lines = tree.getLineCount();
const batches = [[], []];
for (let i = 0; i < 1_000_000 / LOOK_UP_BATCH; ++i) {
    const keys = Array.from({ length: LOOK_UP_BATCH }, () => random(0x7fffffff));
    batches[0].push(timed(() => { for (const key of keys) tree.getPositionAt(key % length); }) / LOOK_UP_BATCH);
    batches[1].push(timed(() => { for (const key of keys) tree.getOffsetAt(1 + key % lines, 1); }) / LOOK_UP_BATCH);
}
report('lineOfLocation', batches[0], 1);
report('locationOfLine', batches[1], 1);

const edits = [];
for (let i = 0; i < 10_000; ++i) {
    const location = random(tree.getLength() - 2);
    const kind = i % 4;
    if (kind === 3) edits.push(timed(() => tree.delete(location, 1)));
    else edits.push(timed(() => tree.insert(location, kind === 1 ? '\n' : 'x')));
}
report('randomEdit', edits, 1);

let place = random(tree.getLength());
const strokes = [];
for (let i = 0; i < 10_000; ++i) {
    strokes.push(timed(() => tree.insert(place, 'k')));
    ++place;
}
report('keystroke', strokes, 1);
