#!/usr/bin/env elixir
# A bus of events for a small shop.

defmodule Shop.Event do
  @moduledoc """
  What happened in the shop.

      iex> Shop.Event.new(:sold)
  """

  use GenServer, restart: :transient
  import Bitwise, only: [band: 2, <<<: 2]
  alias Shop.{Order, Customer}
  require Logger

  @enforce_keys [:name]
  @timeout 5_000
  @pattern ~r/^(\d+)-[a-z]+$/iu

  defstruct [:name, at: nil, tags: [], "odd key": 0x1F]

  @type t :: %__MODULE__{name: atom(), at: DateTime.t() | nil, tags: [String.t()]}
  @typedoc "How much"
  @type money(currency) :: {currency, non_neg_integer}
  @callback handle(event :: t, keyword) :: {:ok, term} | {:error, reason :: any}

  defguard is_big(amount) when is_integer(amount) and amount > 1_000
  defguardp is_odd(n) when rem(n, 2) != 0

  @doc "Makes an event."
  @spec new(atom, Keyword.t()) :: t
  def new(name, options \\ [])

  def new(name, options) when is_atom(name) do
    at = Keyword.get(options, :at, DateTime.utc_now())
    %__MODULE__{name: name, at: at, tags: ~w(new shop)a}
  end

  def new(_name, _), do: raise(ArgumentError, message: "no name")

  @doc ~S'''
  Adds \d without escapes.
  '''
  def a <~> b, do: {a, b}

  defp total(%Order{lines: lines} = order) do
    lines
    |> Enum.map(fn %{price: price, count: count} -> price * count end)
    |> Enum.sum()
    |> Kernel.+(order.shipping)
    |> round_up
    |> then(&(&1 / 100 - 1.5e-3))
  end

  defmacro trace(expression) do
    quote do
      result = unquote(expression)
      Logger.debug("#{__ENV__.line}: #{inspect(result, pretty: true)}\n")
      result
    end
  end

  defmacrop hidden, do: :ok

  @impl true
  def init(state), do: {:ok, state, {:continue, :load}}

  @impl GenServer
  def handle_call({:sell, id}, _from, %{orders: orders} = state) do
    with {:ok, order} <- Map.fetch(orders, id),
         true <- order.paid? || {:error, :unpaid},
         %Customer{} = customer <- order.customer do
      send(customer.pid, {:sold, id, total(order)})
      {:reply, :ok, %{state | orders: Map.delete(orders, id)}}
    else
      :error -> {:reply, {:error, :missing}, state}
      {:error, reason} = error when reason in [:unpaid, :late] -> {:reply, error, state}
    end
  end

  def classify(value) do
    case value do
      nil -> :nothing
      <<head::binary-size(2), rest::bitstring>> -> {head, rest}
      [first | _others] when first not in [1, 2] -> first
      ^value -> true
      "prefix" <> suffix -> suffix
      _ -> false
    end
  end

  def loop(socket) do
    receive do
      {:data, ^socket, bytes} when byte_size(bytes) > 0 ->
        loop(socket)

      :stop ->
        exit(:normal)
    after
      @timeout -> throw(:timeout)
    end
  end

  def safely(fun) do
    try do
      fun.()
    rescue
      e in [RuntimeError, KeyError] -> {:error, Exception.message(e)}
    catch
      :exit, reason -> {:exit, reason}
    else
      value -> {:ok, value}
    after
      :telemetry.execute([:shop, :done], %{count: 1})
    end
  end

  def numbers do
    for x <- 1..10//2, rem(x, 3) == 0, into: %{}, do: {x, x ** 2}
    cond do
      0b1010 &&& 0o17 -> ?a
      not true or false -> ?\n
      true -> 'char list #{1 + 1}'
    end
    upcase = &String.upcase/1
    local = &total/1
    list = [1, 2] ++ [3] -- [2]
    text = ~s(a "quoted" #{list} text) <> ~c"charlist" <> :"quoted atom"
    if text =~ @pattern and list != [], do: upcase.(text), else: local
    unless is_nil(text) do
      IO.puts(~D[2024-05-17])
    end
    1 <<< 3 |> band(7)
    !text && list === [] || text !== "x"
  end
end

defimpl String.Chars, for: Shop.Event do
  def to_string(%{name: name}), do: "event #{name}"
end

defprotocol Size do
  def size(data)
end

{:ok, pid} = GenServer.start_link(Shop.Event, %{}, name: Shop)
GenServer.call(pid, {:sell, 42}); Process.sleep(10)
