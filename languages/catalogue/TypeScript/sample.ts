#!/usr/bin/env -S npx tsx
import type { Server } from "node:http";
import { EventEmitter, type Listener as Handler } from "./events.js";
import fs = require("node:fs");
export type { Handler };
export * as tools from "./tools.js";

/** What can be asked for. */
export type Method = "get" | "post" | `x-${string}`;
type Maybe<T> = T | null | undefined;
type Names<T extends object> = { readonly [K in keyof T]-?: `on${Capitalize<K & string>}` };
type Loose<T> = { -readonly [K in keyof T]+?: T[K] };
type Result<T> = T extends Promise<infer U> ? U : never;
type Pair = [first: string, second?: number, ...rest: boolean[]];
type Getter = new (name: string) => Route;
type Query = typeof import("./query.js");
declare const key: unique symbol;

interface Route<Params = unknown> extends Base, Named<string> {
  readonly path: string;
  method?: Method;
  [header: string]: unknown;
  (request: Request): Response;
  new (path: string): Route;
  handle?(params: Params): Promise<void>;
  get size(): number;
}

export const enum Level {
  Silent,
  Error = 1 << 0,
  "very loud" = 0x10,
}

declare global {
  interface Window {
    router: Router;
  }
}

declare module "*.svg" {
  const content: string;
  export default content;
}

namespace Paths.Inner {
  export const ROOT = "/";
}

function parse(text: string): Route;
function parse(text: number, radix?: number): Route;
function parse(this: Router, text: any, radix = 10): Route {
  return JSON.parse(text) as Route;
}

function assertRoute(value: unknown): asserts value is Route {
  if (typeof value !== "object" || value === null) throw new TypeError(`no route: ${value}`);
}

// Finds what answers a request.
@Injectable({ scope: "root" })
export abstract class Router<T extends Route = Route> extends EventEmitter implements Handler, Iterable<T> {
  static readonly DEFAULT_PORT: number = 8_080;
  private declare routes: Map<string, T>;
  protected count!: bigint;
  #hidden?: Maybe<T> = undefined;
  public override name = "router";
  accessor level: Level = Level.Error;
  onError = (error: Error): void => console.error(error);
  #log = async (line: string) => void fs.promises.appendFile("log", line);

  constructor(private readonly server: Server, @Inject() public depth?: number) {
    super();
    this.routes = new Map<string, T>();
  }

  abstract match(path: string): T | undefined;

  get size(): number {
    return this.routes.size;
  }

  static from<const S extends readonly string[]>(this: void, ...paths: S): Router {
    return paths.map((path) => <Route>{ path }) satisfies Route[] as unknown as Router;
  }

  async *[Symbol.asyncIterator](): AsyncGenerator<T, void, never> {
    for (const [path, route] of this.routes.entries()) {
      if (!path.startsWith("/") && route.method! in { get: true }) continue;
      yield route;
    }
  }

  isRoute(value: object): value is T {
    return "path" in value && value instanceof Object;
  }

  chain(): this {
    const first = this.match?.("/")?.path ?? this.#hidden!.path;
    const pattern = /^\/(?<id>\d+)$/u.exec(first);
    delete (this as any).level;
    switch (pattern?.groups?.id) {
      case "1":
        break;
      default:
        debugger;
    }
    label: for (let i = 0; i < 10; i++) {
      if (i % 2) continue label;
    }
    return this;
  }
}

let settings: Record<string, number | boolean> = { port: Router.DEFAULT_PORT, secure: false };
let union: { kind: "a"; value: string } | { kind: "b" } = { kind: "b" };
let callback: (error?: Error, ...rest: Array<object>) => asserts error = () => {};
const tuple: readonly [x: number, y: number] = [1, 2.5e3];
var old: symbol = Symbol("old");
do {
  settings.port = Number(settings.port) - 1;
} while (settings.port > 8000);

export default Router;
