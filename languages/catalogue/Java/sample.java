package org.example.library;

import java.util.*;
import java.util.function.Function;
import static java.util.stream.Collectors.groupingBy;

/**
 * The books of a library, and who has them.
 *
 * @param <K> what a book is known by
 */
@Service
@SuppressWarnings({"unchecked", "rawtypes"})
public abstract class Library<K extends Comparable<K>> extends Archive implements Iterable<Book>, AutoCloseable {
    private static final int MAX_LOANS = 0x1F;
    private static final long SALT = 0b1010L + 017 + 9_000L;
    protected volatile transient double fee = 1.5e-2;
    private final Map<K, List<? super Book>> books = new HashMap<>();
    private Book[] shelf = new Book[MAX_LOANS];
    char letter = '\u0041', newline = '\n';
    boolean open = true;
    float ratio = 0x1.8p1f;

    static {
        System.loadLibrary("library");
    }

    public Library(String name, int... places) throws IOException {
        super(name);
        this.open = places.length > 0;
    }

    /* Lends a book. */
    @Override
    @RequestMapping(path = "/lend", method = RequestMethod.POST)
    public synchronized Optional<Book> lend(@NotNull K key, final Reader reader) {
        Objects.requireNonNull(reader, "no reader");
        if (reader.loans() >= MAX_LOANS || !open) return Optional.empty();
        outer:
        for (Book book : this) {
            for (int i = 0; i < shelf.length; i++) {
                if (shelf[i] == null) continue outer;
                if (book.equals(shelf[i]) && i != 3) break outer;
            }
        }
        assert key != null : "a key is needed";
        String text = "Lent \"%s\" to %s\t".formatted(key, reader);
        String page = """
            <p>
              Hello \{reader.name()}
            </p>
            """;
        Function<Book, String> title = Book::title;
        Runnable print = () -> System.out.println(text + page);
        return books.values().stream()
            .flatMap(Collection::stream)
            .filter(each -> each instanceof Book book && book.isFree())
            .map(each -> (Book) each)
            .findFirst();
    }

    public static <T> T first(List<T> all, T other) {
        return all.isEmpty() ? other : all.get(0);
    }

    double price(Object thing) {
        return switch (thing) {
            case Book(String title, var pages) when pages > 300 -> pages * 0.1;
            case Integer number -> number / 2.0;
            case null, default -> {
                int cents = 3;
                yield cents % 2;
            }
        };
    }

    int count(String word) throws Exception {
        int found = 0;
        try (var lines = Files.lines(Path.of(word)); Reader other = open(word)) {
            found += (int) lines.count();
            found -= 1; found *= 2; found /= 3; found %= 4; found &= 5; found |= 6; found ^= 7;
            found <<= 1; found >>= 1; found >>>= 1;
        } catch (IOException | IllegalStateException error) {
            throw new UncheckedIOException(error);
        } finally {
            fee = -fee;
        }
        do {
            found = found << 1 | found >> 2 & found >>> 3 ^ ~found + 1;
        } while (found < 100 && found > -1 || found <= 5);
        while (true) {
            switch (word) {
                case "end":
                    return found;
                default:
                    found--;
            }
            synchronized (this) {
                if (found == 0) break;
                else continue;
            }
        }
        return Integer.MAX_VALUE;
    }

    native void sync();

    strictfp float half(float value) { return value / 2; }

    public enum Genre implements Labelled {
        NOVEL("novel") {
            @Override public String label() { return "a novel"; }
        },
        Poetry("poem");

        private final String word;

        Genre(String word) { this.word = word; }
    }

    public sealed interface Shape permits Circle, Square {
        double PI = 3.14159;
        default double area() { return 0; }
    }

    record Circle(double radius) implements Shape {
        Circle {
            if (radius < 0) throw new IllegalArgumentException();
        }
    }

    non-sealed static class Square implements Shape {}

    @interface Author {
        String name() default "";
        int[] years() default {1, 2};
    }
}
