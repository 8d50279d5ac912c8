//go:build linux && !cgo

// Package cache keeps what is dear to compute.
package cache

import (
	"context"
	"errors"
	"fmt"
	_ "net/http/pprof"
	. "strings"
	clock "time"
)

const Limit = 1_000

const (
	Fresh State = iota
	Stale
	Gone = 'g'
)

// ErrMissing says that nothing is kept under a key.
var ErrMissing = errors.New("cache: \"nothing\" kept\n")

var (
	pattern      = `^\d+$`
	mask    byte = 0xFF &^ 0b0000_1111
	ratio        = 1.5e-3 + 2i
)

// State tells how old an entry is.
type State uint8

type Number interface {
	~int | ~float64
	comparable
}

type Store[K comparable, V any] interface {
	Get(ctx context.Context, key K) (V, error)
	Put(key K, value V) error
}

type entry[V any] struct {
	value V
	hits  int           `json:"hits,omitempty"`
	until clock.Time    `json:"until"`
	next  *entry[V]
	done  chan struct{}
	hook  func(n int) bool
}

type (
	Cache[K comparable, V any] struct {
		fmt.Stringer
		entries map[K]*entry[V]
		load    func(context.Context, K) (V, error)
		lock    <-chan bool
	}
	Names = map[string][]string
)

// New makes a cache over a loader.
func New[K comparable, V any](load func(context.Context, K) (V, error), options ...Option) *Cache[K, V] {
	cache := &Cache[K, V]{
		entries: make(map[K]*entry[V], Limit),
		load:    load,
	}
	for _, option := range options {
		option(cache)
	}
	return cache
}

func (c *Cache[K, V]) Get(ctx context.Context, key K) (value V, err error) {
	found, ok := c.entries[key]
	if ok && found != nil && !found.expired() {
		found.hits++
		return found.value, nil
	} else if err := ctx.Err(); err != nil {
		return value, fmt.Errorf("get %v: %w", key, err)
	}

	result := make(chan V, 1)
	go func() {
		defer close(result)
		loaded, _ := c.load(ctx, key)
		result <- loaded
	}()

	select {
	case value = <-result:
		c.entries[key] = &entry[V]{value: value, hits: 0x1}
	case <-ctx.Done():
		return value, ErrMissing
	default:
		goto retry
	}
	return value, nil

retry:
	clock.Sleep(10 * clock.Millisecond)
	return c.Get(ctx, key)
}

func (e entry[V]) expired() bool { return e.until.Before(clock.Now()) }

//go:noinline
func Sum[T Number](numbers ...T) (sum T) {
	for i := 0; i < len(numbers); i++ {
		sum += numbers[i]
	}
	return
}

func describe(value interface{}) string {
	switch v := value.(type) {
	case nil:
		return "nothing"
	case int, *uint64:
		return fmt.Sprintf("%d\t%x", v, '\u00e9')
	case error:
		panic(v)
	case func(string) bool:
		return Repeat("f", 3)
	}
	matrix := [...][2]float64{{1, 2}, {3.5, -4}}
	point := struct{ X, Y int }{X: 1, Y: 2}
outer:
	for row := range matrix {
		switch {
		case row > 1 || point.X&1 == 1:
			break outer
		case row<<2 >= 8:
			fallthrough
		default:
			continue outer
		}
	}
	size := uint8(len(matrix)) ^ mask
	size |= 1
	size, point.Y = size*2/3%4, point.Y-1
	bytes := []byte("raw")[1:2:3]
	(describe)(Sum[float64](1, 2), bytes...)
	/* Nothing else
	   is known. */
	return "unknown" // and true or false do not matter
}
