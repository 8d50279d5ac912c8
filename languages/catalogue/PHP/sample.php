<!DOCTYPE html>
<html lang="en">
<head><title><?= $title ?? 'Shop' ?></title></head>
<?php

declare(strict_types=1);

namespace Acme\Shop;

use Acme\Mail\{Mailer, Message as Mail};
use ArrayAccess;
use Closure;
use Psr\Log\LoggerInterface;
use function array_map, sprintf;
use const PHP_INT_MAX;

const VERSION = '2.1';
define('DEBUG', false);

/**
 * Something that can be sold.
 *
 * @template T
 */
interface Sellable extends \Countable
{
    public const CURRENCY = "EUR";

    public function price(int|float $rate = 1.0, ?string $code = null): float;
}

enum Size: string
{
    case Small = 's';
    case Large = 'l';

    public static function fromLetter(string $letter): self
    {
        return self::tryFrom($letter) ?? throw new \ValueError("no size '{$letter}'\n");
    }
}

trait Discounts
{
    protected static array $rates = ['summer' => .25, 'winter' => 0x10];
    private ?Closure $rounding;

    abstract protected function name(): string;

    public function discounted(float $price, string ...$seasons): float
    {
        foreach ($seasons as $index => $season) {
            $price *= 1 - (self::$rates[$season] ?? 0);
        }
        return $price;
    }
}

#[Entity(table: 'products')]
abstract class Product implements Sellable, ArrayAccess
{
    use Discounts, Named {
        Named::label insteadof Discounts;
        discounted as protected reduced;
    }

    var $legacy = 1_000;
    public readonly Size $size;

    public function __construct(
        private readonly LoggerInterface $logger,
        protected string $name = "unnamed",
        int &$counter = 0,
    ) {
        parent::__construct($name, size: Size::Small);
        $this->size = Size::Large;
        ++$counter;
        static::$instances[] = $this;
    }

    public string $label {
        get => $this->name;
        set(string $value) { $this->name = \trim($value); }
    }

    #[\Override]
    final public function price(int|float $rate = 1.0, ?string $code = null): float
    {
        global $config;
        static $calls = 0;

        $price = match (true) {
            $rate > 1.5e3, $rate === -1 => $this->base() * $rate,
            $this instanceof Sellable && !isset($code) => round($this->base(), 2),
            default => 0.0,
        };

        switch ($code) {
            case 'EUR':
                break;
            default:
                $price = $price <=> 1 ?: 2;
        }

        try {
            $this->logger?->info("price of $this->name: {$price} \u{20ac}\t$rates[summer]");
        } catch (\RuntimeException | \LogicException $error) {
            throw new \DomainException($error->getMessage(), previous: $error);
        } finally {
            $calls++;
        }

        for ($i = 0, $n = count($this); $i < $n; $i += 2) {
            if ($i % 3 == 0 and $i != 9) {
                continue;
            } elseif ($i <= 4 xor $i >= 8) {
                goto done;
            } else {
                do {
                    $i--;
                } while (false);
            }
        }

        done:
        return (float) $price;
    }

    public function names(): \Generator
    {
        yield 'first' => strtoupper($this->name);
        yield from array_map(fn(string $part): string => ucfirst($part), explode(',', $this->name));
    }
}

function send(Mailer $mailer, Product&Sellable $product): never
{
    $mail = new Mail(subject: sprintf('%05.2f', $product->price()), to: $_POST['to'] ?? 'nobody');
    $filter = function (array $row) use (&$mail, $product): bool {
        [$first, 'second' => $second] = $row;
        list($third) = $row;
        return $first . $second !== $third || empty($row);
    };
    $page = <<<HTML
        <p class="price">{$product->price()} for $product[0]</p>
        HTML;
    $raw = <<<'JSON'
        {"kept": true}
        JSON;
    $found = preg_match('/^(\d+)-[a-z]+$/i', $page, $matches);
    $anonymous = new class($mail) extends Message { public int $id = PHP_INT_MAX; };
    $bits = ~$found & 1 | 2 ^ 3 << 4 >> 1;
    $copy = clone $mail; $class = $mail::class; $name = 'class'; $made = new $class; $$name = `uptime`;
    $mail?->headers['X-Id'] ??= Product::CURRENCY . __LINE__ . DIRECTORY_SEPARATOR;
    Registry::$all[Money::format($COUNT)] = Mail::class;
    $upper = strtoupper(...);
    # TODO: answer to who asked
    unset($copy, $mail->body); include_once __DIR__ . '/footer.php';
    print 'it\'s sent'; @unlink($raw);
    exit(1);
}

?>
<ul>
<?php foreach ($products as $product): ?>
  <li><?php echo htmlspecialchars($product->name); ?></li>
<?php endforeach; if ($empty): ?>
  <li>Nothing</li>
<?php endif ?>
</ul>
</html>
