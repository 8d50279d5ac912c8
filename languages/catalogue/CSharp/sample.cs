#define TRACE
#undef QUIET
#nullable enable
#pragma warning disable CS1591
extern alias legacy;

using System;
using System.Collections.Generic;
using static System.Math;
using Pairs = System.Collections.Generic.Dictionary<string, int>;

[assembly: CLSCompliant(false)]

namespace Workshop.Stock;

/// <summary>What became of an order.</summary>
public enum State : byte
{
    Open = 0,
    Packed = 0x01,
    Sent = 0b10,
    LOST,
}

public delegate Item Finder<in TKey>(TKey key) where TKey : notnull;

public record Money(decimal Amount, string Currency = "EUR");

public struct Range<T> where T : Money { public (Money Low, Money High) Bounds; }

public record Refund(decimal Amount) : Money(-Amount);

public readonly record struct Point(int X, int Y)
{
    public static Point operator +(Point a, Point b) => new(a.X + b.X, a.Y + b.Y);
    public static implicit operator Point((int X, int Y) pair) => new(pair.X, pair.Y);
}

public interface IShelf<out T> where T : class, new()
{
    T? this[int place] { get; }
    event EventHandler Changed;
    void Clear();
}

/** A thing on a shelf. */
[Serializable, Obsolete("use Part", error: true)]
[System.Diagnostics.DebuggerDisplay("{Name}", Type = "item")]
public partial class Item : Thing, IComparable<Item>, IDisposable
{
    private const int MAX_COUNT = 1_000;
    private static readonly Dictionary<string, List<Item?>> _index = new();
    protected internal volatile int count;
    [field: NonSerialized]
    private Item? next;
    public event EventHandler<Item>? Moved;
    public event Action Removed
    {
        add { _removed += value; }
        remove { _removed -= value; }
    }

    public required string Name { get; init; }
    public Money Price { get; private set; } = new Money(9.99m);
    public bool IsCheap => Price.Amount < 1.5e1m && !IsHeavy;

    public Item(string name, params int[] places) : base(name)
    {
        this.Name = name ?? throw new ArgumentNullException(nameof(name));
        base.Register(places.Length);
    }

    ~Item() => Dispose(false);

    public Item? this[int index]
    {
        get => index == 0 ? this : next;
        set => next = value;
    }

    public Item this[string name] => Find(name);

    void IDisposable.Dispose() => GC.SuppressFinalize(this);

    public int CompareTo(Item? other)
    {
        if (other is null) return 1;
        if (other is Item { Name: "bolt", Price.Amount: > 3 and < 9 } found || other is not Item) return -1;
        int Rank(Item item) => item.count % 7 ^ 2;
        Item Other() => other is IDisposable ? this : other;
        if (other is Part part && Other() is Part) return part.count;
        return Rank(this) - Rank(other);
    }

    public async Task<IEnumerable<Item>> FindAsync<TKey>(TKey key, CancellationToken token = default)
        where TKey : struct
    {
        var text = $"looking for {key,10:D4} in {_index.Count} places\n";
        var path = @"C:\stock\""data""";
        var raw = """
            { "name": "bolt" }
            """;
        Console.WriteLine(text + path + raw + 'c' + '\t');
        await foreach (Item item in Source.ReadAsync(token).ConfigureAwait(false))
        {
            if (item?.Price?.ToString() is { Length: > 0 } price) continue;
            yield return item;
        }
        lock (_index)
        {
            _index["all"] = [.. _index.Values, null];
        }
        try
        {
            using var stream = File.OpenRead(path);
            checked { count++; }
            unsafe { Point* where = null; int* pointer = stackalloc int[3]; fixed (int* p = &count) { *p = pointer->GetHashCode(); } }
        }
        catch (IOException error) when (error.HResult != 0)
        {
            throw;
        }
        finally
        {
            Moved?.Invoke(this, (Item)next!);
        }
    }

    public static State Next(State state, object? hint) => state switch
    {
        State.Open when hint is string => State.Packed,
        Item => State.Open,
        State.Packed or State.Sent => State.Sent,
        _ => default,
    };

    protected virtual void Walk(ref int depth, out bool done, in Point start)
    {
        #region Walking
        done = false;
        for (int i = 0, n = 10; i < n; i++)
        {
            switch (i)
            {
                case 0:
                    goto found;
                case int big when big > 5:
                    break;
                default:
                    depth += i << 2 | i >> 1 & ~3;
                    break;
            }
        }
        bool isPart = start is Part;
        do { depth--; } while (depth > 0 && done == false);
        while (!done) done = true;
        #endregion
    found:
        var query = from item in _index.Values
                    where item.Count >= 1
                    join other in names on item.Key equals other.Key into matches
                    let size = item.Count * 2
                    orderby size descending, item.Key ascending
                    group item by item.Key into groups
                    select groups;
        var copy = start with { X = 3 };
        var type = typeof(Item);
        var mapped = query.Select((x, index) => (x, index)).OfType<Item>().ToList();
        var thing = mapped[^1] as Item;
        Func<int, int> square = delegate (int x) { return x * x; };
        (int sum, string label) = (Max(1, 2), "two");
        Item other2 = new Item("nut") { Name = "nut", count = sizeof(int) };
        var ints = new Item[] { thing ?? other2 };
        thing ??= Create<Item>(1);
        if (Pairs.TryGetValue(label, out Item value) && value is IDisposable) legacy::Log.Write(value);
        var parsed = int.Parse(label);
        foreach (var pair in ints[1..3]) Print(pair, end: null);
#if TRACE && !QUIET
        #warning tracing is on
#elif DEBUG
        #error both are on
#else
        #line 200 "Item.cs"
#endif
        parsed -= 1; parsed *= 2; parsed /= 3; parsed %= 4; parsed &= 5; parsed |= 6; parsed ^= 7;
        parsed <<= 1; parsed >>= 1; parsed >>>= 2; parsed = parsed >>> 1 / 2 << 3; sum = +parsed;
        bool all = sum <= 3 || sum >= 4 && sum != 5;
        unchecked { sum = default(Point).X; }
    }
}
