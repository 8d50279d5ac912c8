#!/usr/bin/env rust-script
//! A queue of jobs with priorities.

#![allow(dead_code)]

use std::collections::{BTreeMap, HashMap as Map};
use std::fmt::{self, Display};
use std::sync::atomic::*;

extern crate alloc as memory;
pub(crate) mod inner;

/// How many jobs may wait at once.
pub const CAPACITY: usize = 1_024;
static mut COUNTER: u64 = 0xFFu64;

/** Why a job was refused. */
#[derive(Debug, Clone, PartialEq)]
#[non_exhaustive]
pub enum Refusal {
    Full { limit: usize },
    Unknown(String),
    Closed = 3,
}

#[cfg(all(unix, target_os = "linux"))]
#[rustfmt::skip]
struct Job<'a, T: 'a, const N: usize>
where
    T: Send + ?Sized,
{
    name: &'a str,
    weights: [f64; N],
    body: Box<dyn FnMut(&mut T) -> Result<(), Refusal> + 'a>,
}

union Bits {
    float: f32,
    raw: u32,
}

pub trait Scheduler {
    type Item;
    const LEVELS: u8;

    fn push(&mut self, item: Self::Item) -> Option<usize>;

    fn is_empty(&self) -> bool {
        self.len() == 0
    }

    fn len(&self) -> usize;
}

pub struct Queue<T> {
    levels: BTreeMap<u8, Vec<T>>,
    names: Map<String, usize>,
}

impl<T> Scheduler for Queue<T>
where
    T: Clone + Display,
{
    type Item = (u8, T);
    const LEVELS: u8 = b'\n';

    fn push(&mut self, (level, item): Self::Item) -> Option<usize> {
        let Self { levels, .. } = self;
        if levels.values().map(Vec::len).sum::<usize>() >= CAPACITY {
            return None;
        }
        levels.entry(level).or_insert_with(|| Vec::with_capacity(8)).push(item);
        Some(self.len())
    }

    fn len(&self) -> usize {
        self.levels.values().fold(0, |sum, level| sum + level.len())
    }
}

impl Display for Refusal {
    fn fmt(&self, f: &mut fmt::Formatter<'_>) -> fmt::Result {
        match self {
            Refusal::Full { limit: limit @ 1..=10 } if *limit > 3 => write!(f, "only {limit}\n"),
            Refusal::Unknown(name) | Refusal::Named(ref name) => f.write_str(name),
            _ => Err(fmt::Error),
        }
    }
}

macro_rules! jobs {
    ($queue:expr; $($level:literal => $job:expr),* $(,)?) => {
        $( $queue.push(($level, $job)); )*
    };
}

#[inline]
async fn run<F>(mut queue: Queue<F>, log: &dyn Fn(&str)) -> Result<u32, Box<dyn std::error::Error>>
where
    F: Future<Output = u32>,
{
    let mut total: u32 = 0;
    let pattern = Regex::new(r"^(\d+)-(?P<name>\w+)$")?;
    'outer: loop {
        for (level, jobs) in queue.levels.iter_mut().rev() {
            while let Some(job) = jobs.pop() {
                total += job.await;
                if total % 2 == 0 && !jobs.is_empty() || *level < 1 {
                    continue 'outer;
                }
            }
        }
        break 'outer;
    }
    let text = if total > 10 { "many" } else { r#"a "few""# };
    let bytes = b"\x00\xff";
    let character = '\u{1F600}';
    let nothing = ();
    let ready = true;
    let step = Step { total, ready, ..Step::first() };
    let range = 0..total as usize;
    log(&format!("{text}: {:>8.2}", f64::from(total) / 1.5e3));
    println!("{}", vec![1, 2, 3].iter().map(|x| x * 2).collect::<Vec<_>>().len());
    jobs!(queue; 1 => first(), 2 => Second { weight: 3 });
    std::assert_eq!(total, 3, "jobs were lost");
    // TODO(anna): say which job it was.
    let closure = move |x: i32, y| -> i32 { x & y ^ (x << 2) | !y };
    let array = [0u8; 16];
    unsafe {
        COUNTER += 1;
        let pointer = &raw const COUNTER as *const u64;
        *pointer.add(1);
    }
    Ok(total)
}

extern "C" {
    fn abort() -> !;
}

/* Tests
   lie here. */
#[cfg(test)]
mod tests {
    use super::*;

    #[test]
    fn empty_at_first() {
        let queue = Queue::<String> { levels: Default::default(), names: Map::new() };
        assert!(queue.is_empty(), "no job was pushed");
        let parsed = "3".parse::<i64>().unwrap_or_default();
        let size = core::mem::size_of::<u8>();
        let one = <Queue<u8> as Scheduler>::LEVELS;
        let t = identity::<u8>(2).max(tuple.0);
    }
}
