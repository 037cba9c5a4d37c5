// Requests per second of the interface for services on loopback, each against the same server answering a constant.
// wrk sends them; both sides are measured by turns, and the median of the rounds is told.
import { execFileSync, spawn } from 'node:child_process'
import { existsSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs'
import { tmpdir } from 'node:os'
import { join } from 'node:path'

const program = process.env.ZANHOST ?? 'build/bench/bin/zanhost'
const rounds = 5
const secondsOfRound = 2
const connections = 16

const folder = mkdtempSync(join(tmpdir(), 'zanrole-http-bench-'))
const url = `sqlite:${join(folder, 'data')}`

function zanhost(...words) {
  return execFileSync(program, [...words, '--data', url], { encoding: 'utf8' })
}

function start() {
  const server = spawn(program, ['serve', '--data', url, '--listen', '127.0.0.1:0'])
  return new Promise((found, failed) => {
    server.stdout.on('data', (part) => {
      const match = /listens on (\S+)/.exec(String(part))
      if (match) found({ server, origin: match[1] })
    })
    server.on('close', () => failed(new Error('The server did not start')))
  })
}

/** What wrk sends to one address; `body` makes it a POST. `logins` take turns. */
function script({ path, body, token, logins = [''] }) {
  const quoted = (text) => `[==[${text}]==]`
  const file = join(folder, `request-${Math.random().toString(36).slice(2)}.lua`)
  const requests = logins.map((login) => {
    const filled = (text) => text.replaceAll('LOGIN', login)
    const method = body ? 'POST' : 'GET'
    return `wrk.format(${quoted(method)}, ${quoted(filled(path))}, nil, ${body ? quoted(filled(body)) : 'nil'})`
  })
  writeFileSync(
    file,
    `wrk.headers['Authorization'] = ${quoted(`Bearer ${token}`)}
wrk.headers['Content-Type'] = 'application/json'
local requests, at = {}, 0
init = function() requests = {${requests.join(', ')}} end
request = function() at = at % #requests + 1 return requests[at] end
`,
  )
  return file
}

function perSecond(origin, file) {
  const output = execFileSync('wrk', ['-t1', `-c${connections}`, `-d${secondsOfRound}s`, '-s', file, origin], {
    encoding: 'utf8',
  })
  if (/Non-2xx/.test(output)) throw new Error(`Answers were refused:\n${output}`)
  return Number(/Requests\/sec:\s+([\d.]+)/.exec(output)[1])
}

const median = (values) => [...values].sort((a, b) => a - b)[Math.floor(values.length / 2)]

function measure(origin, candidate, floor) {
  const rates = { candidate: [], floor: [] }
  for (let round = 0; round < rounds; ++round) {
    rates.floor.push(perSecond(origin, floor))
    rates.candidate.push(perSecond(origin, candidate))
  }
  return { candidate: median(rates.candidate), floor: median(rates.floor) }
}

function benchmarks(token, logins) {
  const operation = encodeURIComponent('执行')
  const call = (name, input) => ({ path: `/api/functions/${name}`, body: `{"login":"LOGIN","in":{${input}}}`, token })
  return [
    ['function without a statement, one login', { ...call('GetCurDomainID', ''), logins: logins.slice(0, 1) }],
    ['function without a statement, 50 logins', { ...call('GetCurDomainID', ''), logins }],
    ['superior of a person, 50 logins', { ...call('RoleSuperiorEx', '"当前用户":"LOGIN"'), logins }],
    ['right with its reason, 50 logins', { path: `/api/users/LOGIN/rights?objectID=12&operation=${operation}`, token, logins }],
    ['menus, 50 logins', { path: '/api/users/LOGIN/menus', token, logins }],
  ]
}

zanhost('sample', '--quiet', '--people', '500')
const scope = ['--functions', '*', '--questions', '*', '--logins', '*']
const { token } = JSON.parse(zanhost('token', 'add', '--name', 'bench', ...scope, '--per-second', '100000'))
const { server, origin } = await start()
const list = await fetch(`${origin}/api/objects/12/holders?operation=${encodeURIComponent('执行')}&limit=50`, {
  headers: { authorization: `Bearer ${token}` },
})
const logins = (await list.json()).users.map(({ login }) => login)

const resultsFile = process.env.ZAN_BENCH_RESULTS
const run = resultsFile && existsSync(resultsFile) ? JSON.parse(readFileSync(resultsFile, 'utf8')) : { results: [] }
console.log(`\nHttpBench, ${connections} connections from one sender on the same machine`)
console.log(`${'requests per second'.padEnd(44)} ${'answer'.padStart(10)} ${'constant'.padStart(10)} ${'ratio'.padStart(6)}`)
try {
  const floor = script({ path: '/healthz', token })
  for (const [name, request] of benchmarks(token, logins)) {
    const { candidate, floor: constant } = measure(origin, script(request), floor)
    const ratio = candidate / constant
    console.log(
      [name.padEnd(44), candidate.toFixed(0).padStart(10), constant.toFixed(0).padStart(10), ratio.toFixed(2).padStart(6)].join(' '),
    )
    run.results.push({ benchmark: 'HttpBench', engine: 'SQLite', name, candidate, floor: constant, ratio })
  }
  if (resultsFile) writeFileSync(resultsFile, `${JSON.stringify(run)}\n`)
} finally {
  server.removeAllListeners('close')
  server.kill()
  rmSync(folder, { recursive: true, force: true })
}
