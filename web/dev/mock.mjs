// A server for developing and testing the client: the real protocol, made-up consoles.
//   node dev/mock.mjs [port] [folder of the built client]
// Logins: admin/admin; fresh/fresh needs a new password; anything else is refused, and slowed down after three tries.

import { createReadStream, existsSync, statSync } from 'node:fs'
import { createServer } from 'node:http'
import { extname, join, normalize } from 'node:path'
import { fileURLToPath } from 'node:url'
import { WebSocketServer } from 'ws'
import { openMain } from './mockConsoles.mjs'
import { MockSession } from './mockSession.mjs'

const TYPES = { '.html': 'text/html; charset=utf-8', '.js': 'text/javascript', '.css': 'text/css', '.svg': 'image/svg+xml' }
const POLICY = "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; connect-src 'self'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'"
const COOKIE = 'zan=1; HttpOnly; SameSite=Strict; Path=/'

export function startMock(port, folder) {
  const state = { info: undefined, session: undefined, line: undefined, tries: 0, refuseLines: false }
  const server = createServer((request, reply) => void answer(state, folder, request, reply))
  const lines = new WebSocketServer({ noServer: true })
  server.on('upgrade', (request, socket, head) => {
    if (!state.info || state.refuseLines || request.url !== '/api/ws') return socket.destroy()
    lines.handleUpgrade(request, socket, head, line => attach(state, line))
  })
  return new Promise(resolve => server.listen(port, '127.0.0.1', () => resolve({ server, port: server.address().port, state })))
}

function attach(state, line) {
  if (state.line?.readyState === 1) bye(state, 'taken')
  state.line = line
  state.session ??= newSession(state)
  state.session.send = message => { if (line.readyState === 1) line.send(JSON.stringify(message)) }
  line.on('message', text => void state.session?.handle(JSON.parse(String(text))))
  state.session.attach()
}

function newSession(state) {
  const session = new MockSession(state.info.login, () => undefined)
  session.language = state.info.language
  openMain(session)
  return session
}

function bye(state, reason) {
  state.line?.send(JSON.stringify({ bye: reason }))
  state.line?.close()
  if (reason !== 'taken') state.session = undefined
}

async function answer(state, folder, request, reply) {
  const address = new URL(request.url, 'http://mock')
  const routes = {
    'POST /api/login': () => login(state, request, reply),
    'GET /api/session': () => (state.info ? json(reply, 200, state.info) : problem(reply, 401)),
    'POST /api/logout': () => { bye(state, 'ended'); state.info = undefined; reply.writeHead(204).end() },
    'POST /api/upload': () => upload(state, address, request, reply),
    'GET /api/files/users.xml': () => reply.writeHead(200, { 'Content-Type': 'application/octet-stream' }).end('<users/>'),
    // The rest is for tests: what a server does when things go wrong.
    'POST /mock/bye': () => { bye(state, address.searchParams.get('reason')); reply.writeHead(204).end() },
    'POST /mock/drop': () => { state.line?.terminate(); reply.writeHead(204).end() },
    'POST /mock/refuse': () => { state.refuseLines = address.searchParams.get('on') === 'true'; reply.writeHead(204).end() },
    'POST /mock/delay': () => { state.session.delay = Number(address.searchParams.get('ms')); reply.writeHead(204).end() },
    'GET /mock/events': () => json(reply, 200, state.session?.events ?? []),
    'POST /mock/reset': () => { Object.assign(state, { info: undefined, session: undefined, tries: 0, refuseLines: false }); reply.writeHead(204).end() },
  }
  const route = routes[`${request.method} ${address.pathname}`]
  if (route) return route()
  return file(folder, address.pathname, reply)
}

async function login(state, request, reply) {
  let text = ''
  for await (const chunk of request) text += chunk
  const given = JSON.parse(text)
  if (state.tries >= 3) return json(reply, 429, { title: 'slowed down', status: 429 }, { 'Retry-After': '2' }, () => { state.tries = 0 })
  const fresh = given.login === 'fresh' && given.password === 'fresh'
  if (fresh && !given.newPassword) return json(reply, 403, { title: 'reset', status: 403, reset: true })
  if (!fresh && !(given.login === 'admin' && given.password === 'admin')) {
    state.tries++
    return problem(reply, 401)
  }
  if (state.info?.login !== given.login) state.session = undefined
  state.info = { login: given.login, name: '系统管理员', language: given.language }
  return json(reply, 200, state.info, { 'Set-Cookie': COOKIE })
}

async function upload(state, address, request, reply) {
  for await (const chunk of request) void chunk
  reply.writeHead(204).end()
  state.session?.windows.get(Number(address.searchParams.get('window')))?.close(address.searchParams.get('name'))
}

function json(reply, status, body, headers = {}, after = () => undefined) {
  reply.writeHead(status, { 'Content-Type': 'application/json', ...headers }).end(JSON.stringify(body))
  after()
}

function problem(reply, status) {
  json(reply, status, { title: 'refused', status, detail: '' })
}

function file(folder, path, reply) {
  const wanted = join(folder, normalize(path === '/' ? '/index.html' : path))
  if (!wanted.startsWith(folder) || !existsSync(wanted) || !statSync(wanted).isFile()) return reply.writeHead(404).end()
  reply.writeHead(200, { 'Content-Type': TYPES[extname(wanted)] ?? 'application/octet-stream', 'Content-Security-Policy': POLICY, 'X-Content-Type-Options': 'nosniff' })
  createReadStream(wanted).pipe(reply)
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  const folder = process.argv[3] ?? fileURLToPath(new URL('../dist', import.meta.url))
  const { port } = await startMock(Number(process.argv[2] ?? 8701), folder)
  console.log(`The mock server listens on http://127.0.0.1:${port}/`)
}
