import { useCallback, useRef, useState } from "react";
import Calendar, { Day } from "./calendar";
import * as Form from "./form";

const WEEK = 7;
const EMPTY = /^\s*$/;

/**
 * Lets somebody choose a day.
 *
 * @param {object} props what the parent says
 * @param {(day: Date) => void} props.onChoose hears of the choice
 */
export function Chooser({ days = [], onChoose, title = "Choose", ...rest }) {
  const [open, setOpen] = useState(false);
  const input = useRef(null);
  const choose = useCallback(
    (day) => {
      setOpen(!open);
      onChoose?.(day);
    },
    [open, onChoose],
  );

  if (days.length === 0) {
    return <p className="empty">Nothing to choose&hellip;</p>;
  }

  return (
    <section id="chooser" className={open ? "open" : undefined} {...rest}>
      <h2>{title}</h2>
      <Form.Field label="Day" hint={`of ${days.length * WEEK} days`}>
        <input
          ref={input}
          type="date"
          required
          onChange={async (event) => {
            const value = event.target.value.trim();
            if (EMPTY.test(value)) return;
            await save({ value, at: Date.now() });
          }}
        />
      </Form.Field>
      <Calendar weeks={4}>
        {days.map((day, index) => (
          <Day key={day.id} first={index % WEEK === 0} onClick={() => choose(day)}>
            {day.name} {index > 0 && <b>{index}</b>}
          </Day>
        ))}
      </Calendar>
      <svg:use xlink:href="#arrow" />
      {/* the rest comes later */}
      <>
        <button disabled={!open} style={{ color: "red", margin: 4 }}>
          Close
        </button>
        <Form.Reset />
      </>
    </section>
  );
}

export class Boundary extends React.Component {
  state = { error: null };

  static getDerivedStateFromError(error) {
    return { error };
  }

  render() {
    const { error } = this.state;
    // Whatever went wrong is shown in place of the children.
    return error instanceof Error ? <pre>{error.message}</pre> : this.props.children;
  }
}

const lazy = (load) => {
  let Component;
  return function Lazy(props) {
    Component ??= load();
    return <Component {...props} />;
  };
};

async function save(change) {
  const response = await fetch("/days", { method: "POST", body: JSON.stringify(change) });
  if (!response.ok) throw new Error(`not saved: ${response.status}`);
  return response.json();
}

export default lazy(() => Chooser);
export function* pages(list, size = 10) {
  for (let at = 0; at < list.length; at += size) {
    yield <Form.Page key={at}>{list.slice(at, at + size).map(({ id, name: title }) => <li key={id}>{title}</li>)}</Form.Page>;
  }
}

export const Status = ({ kind }) => {
  switch (kind) {
    case "busy":
      return <progress max={100} value="40" aria-busy='true' />;
    default:
      return typeof kind === "string" ? <my-label text="a &lt; b">{kind}</my-label> : null;
  }
};
