#!/usr/bin/env node
// Stands in for the worker command: speaks the same lines, and does on request what a real worker never should.
import { readFileSync, writeFileSync } from 'node:fs'
import { join } from 'node:path'
import { createInterface } from 'node:readline'

const args = process.argv.slice(2)
const files = args[args.indexOf('--files') + 1]
const received = []
let seq = 0
let ack = 0
let text = ''
let hung = false
let stubborn = false

function write(line) {
  process.stdout.write(JSON.stringify(line) + '\n')
}

function changes(list, extra = {}) {
  seq += 1
  write({ seq, ack, ...extra, changes: list })
}

const commands = {
  set: (event) => { text = event.value; changes([{ set: 1, name: 'Edit', value: text }]) },
  report: () => changes([{ report: { pid: process.pid, args, data: process.env.ZANHOST_DATA, received } }]),
  hang: () => { hung = true },
  crash: () => process.kill(process.pid, 'SIGKILL'),
  quit: () => process.exit(0),
  stubborn: () => { stubborn = true; changes([]) },
  complain: (event) => { process.stderr.write(event.value + '\n'); changes([]) },
  garbage: () => { process.stdout.write('this is no line of the protocol\n'); changes([]) },
  make: (event) => { writeFileSync(join(files, event.name), event.value); changes([{ file: event.name }]) },
  language: () => changes([]),
  flood: (event) => {
    for (let i = 0; i < event.lines; i += 1) changes([{ filler: 'x'.repeat(event.size) }])
  },
}

function control(line) {
  if (line.gateway === 'attach') {
    seq = 0
    ack = 0
    changes([{ open: 1, class: 'TMainForm' }, { set: 1, name: 'Edit', value: text }], { snapshot: true })
  }
  if (line.gateway === 'uploaded') changes([{ uploaded: line, content: readFileSync(line.path, 'utf8') }])
}

if (args.includes('--user=nobody')) {
  write({ failed: 'This login has no console.' })
  process.exit(1)
}
write({ ready: true })
const lines = createInterface({ input: process.stdin })
lines.on('line', (raw) => {
  received.push(raw)
  if (hung) return
  const line = JSON.parse(raw)
  if (line.gateway) return control(line)
  ack = line.n ?? ack
  const command = commands[line.do]
  if (command) command(line)
  else changes([])
})
lines.on('close', () => {
  if (!stubborn) process.exit(0)
  setInterval(() => {}, 1000)
})
