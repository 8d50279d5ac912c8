#!/usr/bin/env node
"use strict";

import fs, { readFile as read, watch } from "node:fs/promises";
import * as path from "node:path";
import settings from "./settings.json" with { type: "json" };
export { default as Queue, Job } from "./queue.js";
export * from "./errors.js";

const http = require("node:http");

const MAX_RETRIES = 5;
const PATTERN = /^(?<year>\d{4})-(?<month>[01]\d)(?:T.*)?$/giu;
let counter = 0x1f, big = 9_007n, ratio = 1.5e-3;
var legacy;

/**
 * Waits for a number of milliseconds.
 *
 * @param {number} delay - how long to wait
 * @param {AbortSignal} [signal] ends it early
 * @returns {Promise<void>} when the time is over
 */
export function sleep(delay, signal = undefined) {
  return new Promise((resolve, reject) => {
    const timer = setTimeout(resolve, delay);
    signal?.addEventListener("abort", () => {
      clearTimeout(timer);
      reject(new Error(`stopped after ${delay / 1000} s\n`));
    });
  });
}

// TODO(a.lind): https://example.org/shapes
// Every shape that a class can have.
export default class Watcher extends EventEmitter {
  static #instances = new Map();
  #folder;
  files = [];
  "quoted name" = true;

  static {
    Watcher.#instances.set("none", null);
  }

  constructor(folder, { recursive = false, ...options } = {}) {
    super(options);
    this.#folder = path.resolve(folder);
    this.recursive = recursive;
  }

  get folder() {
    return this.#folder;
  }

  set folder(value) {
    if (typeof value !== "string" || !value) throw new TypeError("a folder has a name");
    this.#folder = value;
  }

  static async *changes(folder) {
    for await (const change of watch(folder)) {
      if (change.eventType === "rename") continue;
      yield { ...change, at: Date.now() };
    }
  }

  async load(name) {
    try {
      const [text, stat] = await Promise.all([read(name, "utf8"), fs.stat(name)]);
      return { text, size: stat.size, lines: text.split(/\r?\n/).length };
    } catch (error) {
      if (error instanceof SyntaxError && error.code in this.#codes()) return null;
      console.error(error?.message ?? "unknown", arguments.length);
      throw error;
    } finally {
      counter++;
    }
  }

  #codes() {
    return { ENOENT: 2, EACCES: 13, [`E${counter}`]: -1 };
  }
}

const double = (x) => x * 2;
const later = async function named() {
  await sleep(10);
};
const numbers = function* count() {
  yield* [1, 2, 3];
};

const handlers = {
  start(event) {
    return double(event.detail.value);
  },
  stop: () => void 0,
  get state() {
    return counter % 2 === 0 ? "even" : "odd";
  },
  update: function (patch) {
    Object.assign(this, patch);
  },
  pattern: PATTERN,
};

handlers.reset = () => {
  counter = 0;
};
legacy = function () {
  return new.target;
};

function* ids(prefix) {
  let next = 0;
  while (true) {
    if (next > MAX_RETRIES) return;
    yield `${prefix}-${String(next++).padStart(4, "0")}`;
  }
}

outer: for (const key in handlers) {
  for (let i = 0, n = key.length; i < n; i += 1) {
    if (key[i] === "_") continue outer;
    if (key.charCodeAt(i) > 0x7f) break outer;
  }
}

switch (process.argv[2]) {
  case "serve":
  case undefined: {
    const server = http.createServer((request, response) => response.end("ok"));
    server.listen(8080);
    break;
  }
  default:
    delete handlers.reset;
    debugger;
}

let bits = ~counter & 0b1010 | 0o17 ^ 3;
bits <<= 2; bits >>= 1; bits >>>= 1; bits &= 7; bits |= 8; bits ^= 1;
bits **= 2; bits %= 100; bits -= 1; bits *= 3; bits /= 2;
bits ||= 1; bits &&= 2; bits ??= 3;
const mixed = (bits << 1 >> 2 >>> 3) ** 2 / 4 - -1 + +2;
const same = bits == 3 && bits != 4 && bits <= 5 && bits >= 1 && !(bits < 2);
do {
  bits--;
} while (bits > 0);

class Service {
  @observable name = "service";

  @action
  @throttle(100)
  rename(name) {
    this.name = name;
  }
}

const page = html`<p class="note">Hello</p>`;
const style = css`p { color: red; }`;
with (globalThis) {
  import(`./plugins/${page}.js`).then(({ default: plugin, meta: { title } }) => plugin(title, import.meta.url));
}
({ bits, ...legacy } = { bits: 1 });
