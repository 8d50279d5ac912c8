import React, { useEffect, useMemo, useState, type ReactNode } from "react";
import * as Icons from "./icons";

const MAX_ROWS = 50;

/**
 * A row of the table.
 * @param {string} title what the row is called
 */
export interface RowProps<T extends object = {}> {
  readonly title: string;
  item?: T;
  children: ReactNode;
  onSelect?(item: T, event: React.MouseEvent): void;
}

type Sort = "name" | "date";

enum Tone {
  Quiet = "quiet",
  Loud = "loud",
}

function useItems(url: string): readonly Item[] {
  const [items, setItems] = useState<Item[]>([]);
  useEffect(() => {
    const controller = new AbortController();
    fetch(`${url}?limit=${MAX_ROWS}`, { signal: controller.signal })
      .then((response) => response.json())
      .then((found: Item[]) => setItems(found.filter((item) => /^[a-z]\w*$/i.test(item.name))))
      .catch(() => {});
    return () => controller.abort();
  }, [url]);
  return items;
}

export const Row = <T extends object>({ title, item, children, onSelect }: RowProps<T>) => {
  const tone = item ? Tone.Loud : Tone.Quiet;
  return (
    <li
      className={`row row-${tone}`}
      onClick={(event) => item && onSelect?.(item, event)}
      aria-label={title}
      tabIndex={0}
    >
      <Icons.Chevron size={16} rotated />
      <strong>{title.toUpperCase()}</strong>
      {children ?? <em>nothing &amp; nobody</em>}
    </li>
  );
};

// The whole table.
export default function Table({ url, sort = "name" }: { url: string; sort?: Sort }) {
  const items = useItems(url);
  const sorted = useMemo(
    () => [...items].sort((a, b) => (sort === "name" ? a.name.localeCompare(b.name) : +a.date - +b.date)),
    [items, sort],
  );
  if (!sorted.length) return null;
  return (
    <>
      <h1 data-count={sorted.length}>Things</h1>
      <svg:defs xlink:href="#icon" />
      <List<Item> items={sorted} {...{ dense: true }}>
        {sorted.map((item) => (
          <Row key={item.id} title={item.name} item={item} onSelect={(it) => console.log(it!.id as number)}>
            {item.count > 1 ? <span>{item.count}</span> : undefined}
          </Row>
        ))}
      </List>
      <Icons.Footer>
        {/* only where there is room */}
        <input type="search" disabled={false} defaultValue='all' />
      </Icons.Footer>
    </>
  );
}

abstract class Store<State> {
  private listeners: Array<() => void> = [];
  protected abstract get state(): State;

  subscribe(listener: () => void): () => void {
    this.listeners.push(listener);
    return () => void (this.listeners = this.listeners.filter((each) => each !== listener));
  }
}
const Context = React.createContext<{ tone: Tone } | undefined>(undefined);

export const Themed: React.FC<{ tone?: Tone }> = React.memo(function Themed({ tone = Tone.Quiet, ...rest }) {
  const box = React.useRef<HTMLDivElement>(null);
  return (
    <Context.Provider value={{ tone } satisfies { tone: Tone }}>
      <div ref={box} data-tone={tone as string} style={{ margin: -1, width: `${50 + 2}%` }} hidden={!box} {...rest} />
    </Context.Provider>
  );
});

type Props<C> = C extends React.ComponentType<infer P> ? { [K in keyof P]?: P[K] } : never;
declare function isRow(value: unknown): value is RowProps;
